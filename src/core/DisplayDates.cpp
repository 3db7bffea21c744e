#include "core/DisplayDates.h"

#include <algorithm>

#include "platform/Text.h"

namespace orvane {

namespace {

/// `number`, padded at its front to `width`.
std::string padded(int number, std::size_t width, char padding) {
    const std::string digits = std::to_string(number);
    return std::string(width - std::min(width, digits.size()), padding) + digits;
}

std::string listingDate(platform::Instant date, platform::Instant now) {
    constexpr platform::Instant halfAYear = 15'768'000;
    constexpr platform::Instant anHour = 3'600;
    const platform::CivilTime time = platform::localTime(date);
    const bool isFar = now - date >= halfAYear || date - now >= anHour;
    return std::string(platform::monthAbbreviation(time.month)) + " " + padded(time.day, 2, ' ') +
           (isFar ? "  " + padded(time.year, 4, '0')
                  : " " + padded(time.hour, 2, '0') + ":" + padded(time.minute, 2, '0'));
}

/// `text` without its last blank-separated word, with single blanks between the others.
std::string withoutLastWord(std::string_view text) {
    std::vector<std::string> words;
    for (const std::string_view word : platform::split(text, ' ')) {
        if (!word.empty()) {
            words.emplace_back(word);
        }
    }
    if (!words.empty()) {
        words.pop_back();
    }
    return platform::joined(words, " ");
}

} // namespace

std::string formatDisplayDate(std::string_view text, platform::Instant now) {
    const auto time = platform::parseDisplayTime(withoutLastWord(text));
    return time ? listingDate(platform::instantOfLocalTime(*time), now) : std::string(text);
}

std::string formatISODisplayDate(std::string_view text, platform::Instant now) {
    const auto instant = platform::parseIsoInstant(text);
    return instant ? listingDate(*instant, now) : std::string();
}

} // namespace orvane
