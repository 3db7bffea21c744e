#include "library/Instant.h"

#include <array>
#include <cstdio>
#include <cstring>

#include <time.h>

namespace sample {

using std::chrono::seconds;
using std::chrono::system_clock;

Instant now() {
    return std::chrono::floor<seconds>(system_clock::now());
}

std::optional<Instant> parseInstant(const std::string& text, DayEdge edge) {
    tm fields{};
    const char* rest = ::strptime(text.c_str(), "%Y-%m-%d", &fields);
    const bool wholeDay = rest && *rest == '\0';
    if (rest && !wholeDay) {
        const char* withSeconds = ::strptime(rest, "T%H:%M:%S", &fields);
        rest = withSeconds ? withSeconds : ::strptime(rest, "T%H:%M", &fields);
    }
    if (!rest) {
        return std::nullopt;
    }
    if (*rest == '.') {
        rest += 1 + std::strspn(rest + 1, "0123456789");
    }
    fields.tm_isdst = -1; // The zone's rules tell.
    if (wholeDay && edge == DayEdge::last) {
        ++fields.tm_mday;
        fields.tm_sec = -1;
    }
    if (*rest == '\0') {
        return Instant(seconds(::mktime(&fields)));
    }
    tm zone{};
    rest = ::strptime(rest, "%z", &zone);
    return rest && *rest == '\0' ? std::optional(Instant(seconds(::timegm(&fields) - zone.tm_gmtoff))) : std::nullopt;
}

std::string displayTimestamp(Instant instant) {
    constexpr std::array months{"Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const time_t time = system_clock::to_time_t(instant);
    tm local{};
    ::localtime_r(&time, &local);
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%s %d, %d, %d:%02d %s %s",
                  months.at(static_cast<std::size_t>(local.tm_mon)), local.tm_mday, local.tm_year + 1900,
                  (local.tm_hour + 11) % 12 + 1, local.tm_min, local.tm_hour < 12 ? "AM" : "PM", local.tm_zone);
    return text.data();
}

std::string isoTimestamp(Instant instant) {
    const time_t time = system_clock::to_time_t(instant);
    tm fields{};
    ::gmtime_r(&time, &fields);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &fields);
    return text.data();
}

} // namespace sample
