#include "platform/Dates.h"

#include <algorithm>
#include <array>
#include <charconv>
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

    void expect(std::string_view piece) {
        if (!failed_ && text_.starts_with(piece)) {
            text_.remove_prefix(piece.size());
        } else {
            failed_ = true;
        }
    }

    /// A decimal number of `least` to `most` digits.
    int number(std::size_t least, std::size_t most) {
        const std::size_t digits = std::min(text_.find_first_not_of("0123456789"), text_.size());
        int value = 0;
        if (failed_ || digits < least || digits > most) {
            failed_ = true;
            return value;
        }
        std::from_chars(text_.data(), text_.data() + digits, value);
        text_.remove_prefix(digits);
        return value;
    }

    /// The number, from 1, of the month at the front.
    int month() {
        for (std::size_t i = 0; i < months.size(); ++i) {
            if (!failed_ && text_.starts_with(months[i])) {
                text_.remove_prefix(months[i].size());
                return static_cast<int>(i) + 1;
            }
        }
        failed_ = true;
        return 1;
    }

private:
    std::string_view text_;
    bool failed_ = false;
};

std::chrono::year_month_day dateOf(const CivilTime& time) {
    return std::chrono::year(time.year) / time.month / time.day;
}

} // namespace

Instant currentInstant() {
    return static_cast<Instant>(::time(nullptr));
}

std::string_view monthAbbreviation(int month) {
    return months.at(static_cast<std::size_t>(month - 1));
}

CivilTime localTime(Instant instant) {
    const time_t time = static_cast<time_t>(instant);
    tm fields{};
    ::localtime_r(&time, &fields);
    return {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min, fields.tm_sec};
}

Instant instantOfLocalTime(const CivilTime& time) {
    tm fields{};
    fields.tm_year = time.year - 1900;
    fields.tm_mon = time.month - 1;
    fields.tm_mday = time.day;
    fields.tm_hour = time.hour;
    fields.tm_min = time.minute;
    fields.tm_sec = time.second;
    fields.tm_isdst = -1; // the zone's rules tell
    return static_cast<Instant>(::mktime(&fields));
}

std::optional<CivilTime> parseDisplayTime(std::string_view text) {
    constexpr int noon = 12;
    Scanner scanner(text);
    CivilTime time;
    time.month = scanner.month();
    scanner.expect(" ");
    time.day = scanner.number(1, 2);
    scanner.expect(", ");
    time.year = scanner.number(1, 4);
    scanner.expect(", ");
    const int hour = scanner.number(1, 2);
    scanner.expect(":");
    time.minute = scanner.number(2, 2);
    scanner.expect(" ");
    const bool isAfternoon = scanner.skip('P');
    scanner.expect(isAfternoon ? "M" : "AM");
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
    scanner.expect("-");
    time.month = scanner.number(2, 2);
    scanner.expect("-");
    time.day = scanner.number(2, 2);
    scanner.expect("T");
    time.hour = scanner.number(2, 2);
    scanner.expect(":");
    time.minute = scanner.number(2, 2);
    scanner.expect(":");
    time.second = scanner.number(2, 2);
    if (scanner.skip('.')) {
        scanner.number(1, 9);
    }
    int offsetMinutes = 0;
    if (!scanner.skip('Z')) {
        const bool isWest = scanner.skip('-');
        if (!isWest) {
            scanner.expect("+");
        }
        const int hours = scanner.number(2, 2);
        scanner.expect(":");
        offsetMinutes = (hours * 60 + scanner.number(2, 2)) * (isWest ? -1 : 1);
    }
    if (!scanner.isAtEnd() || !dateOf(time).ok() || time.hour > 23 || time.minute > 59 || time.second > 60) {
        return std::nullopt;
    }
    const auto instant = std::chrono::sys_days(dateOf(time)) + std::chrono::hours(time.hour) +
                         std::chrono::minutes(time.minute - offsetMinutes) + std::chrono::seconds(time.second);
    return std::chrono::duration_cast<std::chrono::seconds>(instant.time_since_epoch()).count();
}

} // namespace platform
