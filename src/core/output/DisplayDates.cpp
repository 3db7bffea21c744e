#include "core/output/DisplayDates.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace orvane {

namespace {

/// Appends `number` in at least `width` places.
void appendPadded(std::string& text, int number, std::size_t width, char padding) {
    char digits[std::numeric_limits<int>::digits10 + 2];
    const char* const end = std::to_chars(digits, std::end(digits), number).ptr;
    const auto length = static_cast<std::size_t>(end - digits);
    text.append(width - std::min(width, length), padding).append(digits, length);
}

std::string listingDate(platform::Instant date, platform::LocalClock& clock) {
    constexpr platform::Instant halfAYear = 15'768'000;
    constexpr platform::Instant anHour = 3'600;
    const platform::CivilTime time = clock.timeAt(date);
    const bool isFar = clock.now() - date >= halfAYear || date - clock.now() >= anHour;
    std::string text(platform::monthAbbreviation(time.month));
    text += ' ';
    appendPadded(text, time.day, 2, ' ');
    if (isFar) {
        text += "  ";
        appendPadded(text, time.year, 4, '0');
    } else {
        text += ' ';
        appendPadded(text, time.hour, 2, '0');
        text += ':';
        appendPadded(text, time.minute, 2, '0');
    }
    return text;
}

} // namespace

std::string formatDisplayDate(std::string_view text, platform::LocalClock& clock) {
    const auto time = platform::parseDisplayTime(text);
    return time ? listingDate(clock.instantOf(*time), clock) : std::string(text);
}

std::string formatDisplayDate(std::string_view text) {
    platform::LocalClock clock;
    return formatDisplayDate(text, clock);
}

std::string formatISODisplayDate(std::string_view text, platform::LocalClock& clock) {
    const auto instant = platform::parseIsoInstant(text);
    return instant ? listingDate(*instant, clock) : std::string();
}

} // namespace orvane
