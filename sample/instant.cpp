#include "instant.h"

#include <array>
#include <cstdio>

namespace sample {

using namespace std::chrono;

namespace {

/// Takes a piece of the form `shape`, in which 0 stands for any digit, off the front of `text`.
std::optional<std::string_view> take(std::string_view& text, std::string_view shape) {
    if (text.size() < shape.size()) {
        return std::nullopt;
    }
    for (std::size_t at = 0; at < shape.size(); ++at) {
        if (shape[at] == '0' ? text[at] < '0' || text[at] > '9' : text[at] != shape[at]) {
            return std::nullopt;
        }
    }
    const std::string_view piece = text.substr(0, shape.size());
    text.remove_prefix(shape.size());
    return piece;
}

int number(std::string_view digits) {
    int value = 0;
    for (const char digit : digits) {
        value = value * 10 + (digit - '0');
    }
    return value;
}

std::optional<minutes> hoursAndMinutes(std::string_view hour, std::string_view minute) {
    if (number(hour) > 23 || number(minute) > 59) {
        return std::nullopt;
    }
    return hours(number(hour)) + minutes(number(minute));
}

std::optional<minutes> takeZone(std::string_view& text) {
    if (text.empty() || take(text, "Z")) {
        return minutes(0);
    }
    const int sign = text.front() == '-' ? -1 : 1;
    for (const std::string_view shape : {"+00:00", "-00:00", "+0000", "-0000"}) {
        if (const auto piece = take(text, shape)) {
            if (const auto offset = hoursAndMinutes(piece->substr(1, 2), piece->substr(piece->size() - 2))) {
                return sign * *offset;
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<Instant> parseInstant(std::string_view text, DayEdge edge) {
    const auto date = take(text, "0000-00-00");
    if (!date) {
        return std::nullopt;
    }
    const auto whole = [&](std::size_t at) { return static_cast<unsigned>(number(date->substr(at, 2))); };
    const year_month_day calendarDay(year(number(date->substr(0, 4))), month(whole(5)), day(whole(8)));
    if (!calendarDay.ok()) {
        return std::nullopt;
    }
    const Instant midnight = sys_days(calendarDay);
    if (text.empty()) {
        return edge == DayEdge::first ? midnight : midnight + days(1) - milliseconds(1);
    }

    const auto clock = take(text, "T00:00");
    const auto time = clock ? hoursAndMinutes(clock->substr(1, 2), clock->substr(4)) : std::nullopt;
    const auto second = take(text, ":00");
    if (!time || (second && number(second->substr(1)) > 59)) {
        return std::nullopt;
    }
    milliseconds fine = seconds(second ? number(second->substr(1)) : 0);
    auto digit = second ? take(text, ".0") : std::nullopt;
    for (int unit = 100; digit; unit /= 10) {
        fine += milliseconds(unit * number(digit->substr(digit->size() - 1)));
        digit = take(text, "0");
    }
    const auto zone = takeZone(text);
    if (!zone || !text.empty()) {
        return std::nullopt;
    }
    return midnight + *time + fine - *zone;
}

std::string displayTimestamp(Instant instant) {
    constexpr std::array months{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const year_month_day date(floor<days>(instant));
    const hh_mm_ss time(instant - floor<days>(instant));
    std::array<char, 64> line{};
    std::snprintf(line.data(), line.size(), "%s %u, %d, %d:%02d %s UTC", months.at(unsigned(date.month()) - 1),
                  unsigned(date.day()), int(date.year()), static_cast<int>(make12(time.hours()).count()),
                  static_cast<int>(time.minutes().count()), is_am(time.hours()) ? "AM" : "PM");
    return line.data();
}

std::string isoTimestamp(Instant instant) {
    const year_month_day date(floor<days>(instant));
    const hh_mm_ss time(instant - floor<days>(instant));
    std::array<char, 64> line{};
    std::snprintf(line.data(), line.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ", int(date.year()),
                  unsigned(date.month()), unsigned(date.day()), static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()),
                  static_cast<int>(time.subseconds().count()));
    return line.data();
}

} // namespace sample
