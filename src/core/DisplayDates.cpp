#include "core/DisplayDates.h"

#include <cstdio>

#include "platform/Text.h"

namespace orvane {

namespace {

std::string listingDate(platform::Instant date, platform::Instant now) {
    constexpr platform::Instant halfAYear = 15'768'000;
    constexpr platform::Instant anHour = 3'600;
    const platform::CivilTime time = platform::localTime(date);
    const bool isFar = now - date >= halfAYear || date - now >= anHour;
    char text[64];
    if (isFar) {
        std::snprintf(text, sizeof text, " %2d  %04d", time.day, time.year);
    } else {
        std::snprintf(text, sizeof text, " %2d %02d:%02d", time.day, time.hour, time.minute);
    }
    return std::string(platform::monthAbbreviation(time.month)) + text;
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
