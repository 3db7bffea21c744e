#include "core/DisplayDates.h"

#include <algorithm>

namespace orvane {

namespace {

/// Appends `number` in at least `width` places.
void appendPadded(std::string& text, int number, std::size_t width, char padding) {
    const std::string digits = std::to_string(number);
    text.append(width - std::min(width, digits.size()), padding).append(digits);
}

std::string listingDate(platform::Instant date, platform::Instant now) {
    constexpr platform::Instant halfAYear = 15'768'000;
    constexpr platform::Instant anHour = 3'600;
    const platform::CivilTime time = platform::localTime(date);
    const bool isFar = now - date >= halfAYear || date - now >= anHour;
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

std::string formatDisplayDate(std::string_view text, platform::Instant now) {
    const auto time = platform::parseDisplayTime(text);
    return time ? listingDate(platform::instantOfLocalTime(*time), now) : std::string(text);
}

std::string formatISODisplayDate(std::string_view text, platform::Instant now) {
    const auto instant = platform::parseIsoInstant(text);
    return instant ? listingDate(*instant, now) : std::string();
}

} // namespace orvane
