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

    /// A decimal number of `minimum` to `maximum` digits.
    int number(std::size_t minimum, std::size_t maximum) {
        const std::size_t digits = digitCount();
        int value = 0;
        if (failed_ || digits < minimum || digits > maximum) {
            failed_ = true;
            return value;
        }
        std::from_chars(text_.data(), text_.data() + digits, value);
        text_.remove_prefix(digits);
        return value;
    }

    /// One digit or more, however many.
    void expectDigits() {
        const std::size_t digits = digitCount();
        failed_ |= digits == 0;
        text_.remove_prefix(digits);
    }

    void skipBlanks() { text_.remove_prefix(std::min(text_.find_first_not_of(' '), text_.size())); }

    void expectBlanks() {
        expect(" ");
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
    std::size_t digitCount() const {
        const auto end =
            std::find_if_not(text_.begin(), text_.end(), [](char byte) { return byte >= '0' && byte <= '9'; });
        return static_cast<std::size_t>(end - text_.begin());
    }

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

/// Unlike localtime and mktime, localtime_r does not look up the zone's file at every call.
tm localFields(Instant instant) {
    const time_t time = static_cast<time_t>(instant);
    tm fields{};
    ::localtime_r(&time, &fields);
    return fields;
}

} // namespace

Instant currentInstant() {
    return static_cast<Instant>(::time(nullptr));
}

std::string_view monthAbbreviation(int month) {
    return months.at(static_cast<std::size_t>(month - 1));
}

CivilTime localTime(Instant instant) {
    const tm fields = localFields(instant);
    return {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min, fields.tm_sec};
}

Instant instantOfLocalTime(const CivilTime& time) {
    constexpr Instant day = 24 * 60 * 60;
    const Instant utc = instantOfUtc(time);
    // The zone's offset changes at most once in the two days around, and one of the two holds at the time looked for.
    const Instant offsetBefore = localFields(utc - day).tm_gmtoff;
    const Instant offsetAfter = localFields(utc + day).tm_gmtoff;
    if (offsetBefore == offsetAfter) {
        return utc - offsetBefore;
    }
    const bool isAfterChange = localFields(utc - offsetBefore).tm_gmtoff != offsetBefore;
    const bool isSkipped = isAfterChange && localFields(utc - offsetAfter).tm_gmtoff != offsetAfter;
    return utc - (isAfterChange && !isSkipped ? offsetAfter : offsetBefore);
}

std::optional<CivilTime> parseDisplayTime(std::string_view text) {
    constexpr int noon = 12;
    Scanner scanner(text);
    CivilTime time;
    scanner.skipBlanks();
    time.month = scanner.month();
    scanner.expectBlanks();
    time.day = scanner.number(1, 2);
    scanner.expect(",");
    scanner.expectBlanks();
    time.year = scanner.number(1, 4);
    scanner.expect(",");
    scanner.expectBlanks();
    const int hour = scanner.number(1, 2);
    scanner.expect(":");
    time.minute = scanner.number(2, 2);
    scanner.expectBlanks();
    const bool isAfternoon = scanner.skip('P');
    scanner.expect(isAfternoon ? "M" : "AM");
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
        scanner.expectDigits();
    }
    int offsetHours = 0;
    int offsetMinutes = 0;
    bool isWest = false;
    if (!scanner.skip('Z')) {
        isWest = scanner.skip('-');
        if (!isWest) {
            scanner.expect("+");
        }
        offsetHours = scanner.number(2, 2);
        scanner.expect(":");
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
