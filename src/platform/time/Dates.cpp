#include "platform/time/Dates.h"

#include <algorithm>
#include <array>
#include <chrono>

#include <time.h>

namespace platform {

namespace {

constexpr std::array<std::string_view, 12> months{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

/// Takes a text apart from its front; once a piece is missing, all later ones are.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    bool isAtEnd() const { return !failed_ && text_.empty(); }

    bool skip(char character) {
        const bool found = !failed_ && text_.starts_with(character);
        if (found) {
            text_.remove_prefix(1);
        }
        return found;
    }

    void expect(char character) { failed_ |= !skip(character); }

    /// A decimal number of `minimum` digits or more; those behind `maximum` ones are left.
    int number(std::size_t minimum, std::size_t maximum) {
        std::size_t digits = 0;
        int value = 0;
        for (; digits < maximum && startsWithDigit(); ++digits) {
            value = value * 10 + (text_.front() - '0');
            text_.remove_prefix(1);
        }
        failed_ |= digits < minimum;
        return value;
    }

    /// One digit or more, however many.
    void expectDigits() {
        number(1, 1);
        while (startsWithDigit()) {
            text_.remove_prefix(1);
        }
    }

    void skipBlanks() { text_.remove_prefix(std::min(text_.find_first_not_of(' '), text_.size())); }

    void expectBlanks() {
        expect(' ');
        skipBlanks();
    }

    /// Whatever stands before the next blank, one byte or more.
    void expectWord() {
        const std::size_t length = std::min(text_.find(' '), text_.size());
        failed_ |= length == 0;
        text_.remove_prefix(length);
    }

    /// The number, from 1, of the month at the front.
    int month() {
        const std::string_view name = text_.substr(0, months.front().size());
        const auto found = std::find(months.begin(), months.end(), name);
        failed_ |= found == months.end();
        text_.remove_prefix(name.size());
        return static_cast<int>(found - months.begin()) + 1;
    }

private:
    bool startsWithDigit() const { return !text_.empty() && text_.front() >= '0' && text_.front() <= '9'; }

    std::string_view text_;
    bool failed_ = false;
};

std::chrono::year_month_day dateOf(const CivilTime& time) {
    return std::chrono::year(time.year) / time.month / time.day;
}

Instant instantOfUtc(const CivilTime& time) {
    const auto instant = std::chrono::sys_days(dateOf(time)) + std::chrono::hours(time.hour) +
                         std::chrono::minutes(time.minute) + std::chrono::seconds(time.second);
    return instant.time_since_epoch() / std::chrono::seconds(1);
}

CivilTime civilTimeOfUtc(Instant instant) {
    const std::chrono::sys_seconds time{std::chrono::seconds(instant)};
    const auto days = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(days);
    const std::chrono::hh_mm_ss clock(time - days);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(clock.hours().count()),
            static_cast<int>(clock.minutes().count()),
            static_cast<int>(clock.seconds().count())};
}

/// Unlike localtime and mktime, localtime_r does not look up the zone's file at every call.
Instant zoneOffset(Instant instant) {
    const auto time = static_cast<time_t>(instant);
    tm fields{};
    ::localtime_r(&time, &fields);
    return fields.tm_gmtoff;
}

constexpr Instant day = 24 * 60 * 60;

/// The distance of the points in time at which an offset is looked up, less than any zone has kept one for. The
/// shortest time since 1900 was that of Freetown in September 1939: four days less twenty minutes.
constexpr Instant step = 3 * day;

} // namespace

Instant currentInstant() {
    return static_cast<Instant>(::time(nullptr));
}

std::string_view monthAbbreviation(int month) {
    return months.at(static_cast<std::size_t>(month - 1));
}

CivilTime LocalClock::timeAt(Instant instant) {
    const std::optional<Instant> offset = steadyOffset(instant);
    return civilTimeOfUtc(instant + (offset ? *offset : zoneOffset(instant)));
}

Instant LocalClock::instantOf(const CivilTime& time) {
    const Instant utc = instantOfUtc(time);
    if (const std::optional<Instant> offset = steadyOffset(utc)) {
        return utc - *offset;
    }
    // The zone's offset changes at most once in the two days around, and one of the two holds at the time looked for.
    const Instant offsetBefore = zoneOffset(utc - day);
    const Instant offsetAfter = zoneOffset(utc + day);
    if (offsetBefore == offsetAfter) {
        return utc - offsetBefore;
    }
    const bool isAfterChange = zoneOffset(utc - offsetBefore) != offsetBefore;
    const bool isSkipped = isAfterChange && zoneOffset(utc - offsetAfter) != offsetAfter;
    return utc - (isAfterChange && !isSkipped ? offsetAfter : offsetBefore);
}

/// The zone's offset from UTC if it is the same from a day before `instant` to a day after.
std::optional<Instant> LocalClock::steadyOffset(Instant instant) {
    const Instant rest = ((instant - day) % step + step) % step;
    const Instant before = instant - day - rest;
    const Instant offset = offsetAt(before);
    const bool endsInStep = rest + 2 * day <= step;
    const bool isSteady = offsetAt(before + step) == offset && (endsInStep || offsetAt(before + 2 * step) == offset);
    return isSteady ? std::optional(offset) : std::nullopt;
}

/// The offset at a multiple of the step.
Instant LocalClock::offsetAt(Instant gridPoint) {
    KnownOffset& known = known_[static_cast<std::size_t>(gridPoint / step) % known_.size()];
    if (known.instant != gridPoint) {
        known = {gridPoint, zoneOffset(gridPoint)};
    }
    return known.offset;
}

std::optional<CivilTime> parseDisplayTime(std::string_view text) {
    constexpr int noon = 12;
    Scanner scanner(text);
    CivilTime time;
    scanner.skipBlanks();
    time.month = scanner.month();
    scanner.expectBlanks();
    time.day = scanner.number(1, 2);
    scanner.expect(',');
    scanner.expectBlanks();
    time.year = scanner.number(1, 4);
    scanner.expect(',');
    scanner.expectBlanks();
    const int hour = scanner.number(1, 2);
    scanner.expect(':');
    time.minute = scanner.number(2, 2);
    scanner.expectBlanks();
    const bool isAfternoon = scanner.skip('P');
    if (!isAfternoon) {
        scanner.expect('A');
    }
    scanner.expect('M');
    scanner.expectBlanks();
    scanner.expectWord();
    scanner.skipBlanks();
    if (!scanner.isAtEnd() || hour < 1 || hour > noon || time.minute > 59 || !dateOf(time).ok()) {
        return std::nullopt;
    }
    time.hour = hour % noon + (isAfternoon ? noon : 0);
    return time;
}

std::optional<Instant> parseIsoInstant(std::string_view text) {
    Scanner scanner(text);
    CivilTime time;
    time.year = scanner.number(4, 4);
    scanner.expect('-');
    time.month = scanner.number(2, 2);
    scanner.expect('-');
    time.day = scanner.number(2, 2);
    scanner.expect('T');
    time.hour = scanner.number(2, 2);
    scanner.expect(':');
    time.minute = scanner.number(2, 2);
    scanner.expect(':');
    time.second = scanner.number(2, 2);
    if (scanner.skip('.')) {
        scanner.expectDigits();
    }
    int offsetHours = 0;
    int offsetMinutes = 0;
    bool isWest = false;
    if (!scanner.skip('Z')) {
        isWest = scanner.skip('-');
        if (!isWest) {
            scanner.expect('+');
        }
        offsetHours = scanner.number(2, 2);
        scanner.expect(':');
        offsetMinutes = scanner.number(2, 2);
    }
    if (!scanner.isAtEnd() || !dateOf(time).ok() || time.hour > 23 || time.minute > 59 || time.second > 60 ||
        offsetHours > 23 || offsetMinutes > 59) {
        return std::nullopt;
    }
    const Instant offset = (offsetHours * 60 + offsetMinutes) * 60;
    return instantOfUtc(time) + (isWest ? offset : -offset);
}

} // namespace platform
