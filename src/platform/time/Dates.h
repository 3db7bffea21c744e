// Times in the local zone, which the C library knows from TZ or the system.
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>

namespace platform {

/// Seconds since the beginning of 1970, UTC.
using Instant = std::int64_t;

/// A date and a time of day as a calendar and a clock show them.
struct CivilTime {
    int year = 0;
    int month = 1; ///< 1 to 12
    int day = 1;   ///< 1 to 31
    int hour = 0;
    int minute = 0;
    int second = 0;
};

Instant currentInstant();

/// The month's English name of three letters, such as "Mar".
std::string_view monthAbbreviation(int month);

/// The clock of the local zone. It remembers the zone's offsets that it has looked up, for times that are asked about
/// together lie close together.
class LocalClock {
public:
    /// A clock that stands at `now`.
    explicit LocalClock(Instant now = currentInstant()) : now_(now) {}

    Instant now() const { return now_; }

    /// What the clock shows at `instant`.
    CivilTime timeAt(Instant instant);

    /// When the clock shows `time`, the first time when it does so twice; the fields are in range. A time that the
    /// clock skips counts from before the change.
    Instant instantOf(const CivilTime& time);

private:
    struct KnownOffset {
        Instant instant = std::numeric_limits<Instant>::min();
        Instant offset = 0;
    };

    std::optional<Instant> steadyOffset(Instant instant);
    Instant offsetAt(Instant gridPoint);

    Instant now_;
    std::array<KnownOffset, 32> known_;
};

/// "Mar 7, 2024, 2:05 PM PST": month, day, year, the time on a twelve-hour clock, and one word more, which is left
/// aside; several blanks are like one. Nothing for any other text.
std::optional<CivilTime> parseDisplayTime(std::string_view text);

/// An ISO-8601 internet date-time with a zone, such as "2024-03-07T14:05:06.25+01:00"; fractions of a second are
/// dropped. Nothing for any other text.
std::optional<Instant> parseIsoInstant(std::string_view text);

} // namespace platform
