// Times in many zones beside the C library's. The first line of an input names a zone and the second is a text to be
// read as a time; behind them come instants, of seven bytes each, that one clock is asked for.
#include <cstring>
#include <optional>

#include <time.h>

#include "Target.h"
#include "core/output/DisplayDates.h"
#include "platform/time/Dates.h"
#include "platform/time/TimeZones.h"

using platform::CivilTime;
using platform::Instant;

namespace {

constexpr Instant day = 86'400;
constexpr Instant firstInstant = -62'135'596'800; // The year 1.
constexpr Instant lastInstant = 253'402'300'799;  // The end of the year 9999.

tm fieldsOf(Instant instant) {
    const auto time = static_cast<time_t>(instant);
    tm fields{};
    ::localtime_r(&time, &fields);
    return fields;
}

bool shows(const tm& fields, const CivilTime& time) {
    return fields.tm_year + 1900 == time.year && fields.tm_mon + 1 == time.month && fields.tm_mday == time.day &&
           fields.tm_hour == time.hour && fields.tm_min == time.minute && fields.tm_sec == time.second;
}

Instant utcOf(const CivilTime& time) {
    tm fields{};
    fields.tm_year = time.year - 1900;
    fields.tm_mon = time.month - 1;
    fields.tm_mday = time.day;
    fields.tm_hour = time.hour;
    fields.tm_min = time.minute;
    fields.tm_sec = time.second;
    return ::timegm(&fields);
}

/// The first instant at which clocks show `time`, tried with every offset of the days around; nothing when none is.
std::optional<Instant> firstShowing(const CivilTime& time) {
    const Instant utc = utcOf(time);
    std::optional<Instant> first;
    for (Instant at = utc - 2 * day; at <= utc + 2 * day; at += day / 24) {
        const Instant instant = utc - fieldsOf(at).tm_gmtoff;
        if (shows(fieldsOf(instant), time)) {
            first = std::min(first.value_or(instant), instant);
        }
    }
    return first;
}

void checkInstant(Instant instant, platform::LocalClock& clock) {
    const CivilTime time = clock.timeAt(instant);
    fuzz::require(shows(fieldsOf(instant), time), "the clock shows what the C library says");
    fuzz::require(clock.instantOf(time) == firstShowing(time), "a time is the first instant that shows it");

    // A time of the same day in UTC may be one that the clock skips.
    const Instant seconds = ((instant % day) + day) % day;
    const CivilTime other{time.year,
                          time.month,
                          time.day,
                          static_cast<int>(seconds / 3600),
                          static_cast<int>(seconds / 60 % 60),
                          static_cast<int>(seconds % 60)};
    const Instant offsetBefore = fieldsOf(utcOf(other) - day).tm_gmtoff;
    const Instant expected = firstShowing(other).value_or(utcOf(other) - offsetBefore);
    fuzz::require(clock.instantOf(other) == expected, "a time that is skipped counts from before the change");
}

void checkIsoInstant(Instant instant, Instant offset) {
    const auto seconds = static_cast<time_t>(instant + offset * 60);
    tm fields{};
    ::gmtime_r(&seconds, &fields);
    char text[64];
    const std::size_t length = ::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &fields);
    std::snprintf(text + length, sizeof text - length, "%c%02d:%02d", offset < 0 ? '-' : '+',
                  static_cast<int>(std::abs(offset) / 60), static_cast<int>(std::abs(offset) % 60));
    if (std::strlen(text) == std::strlen("1970-01-01T00:00:00+00:00")) { // years below 1000 are written shorter
        fuzz::require(platform::parseIsoInstant(text) == instant, "an instant reads as it was");
    }
}

void checkText(std::string_view text) {
    if (text.find('\0') != std::string_view::npos) {
        return; // The C library's texts end there.
    }
    const std::string copy(text);
    platform::LocalClock clock(1'700'000'000);
    tm fields{};
    if (const auto time = platform::parseDisplayTime(text)) {
        const char* const end = ::strptime(copy.c_str(), " %b %d, %Y, %I:%M %p ", &fields);
        fuzz::require(end != nullptr && *end != '\0' && shows(fields, *time), "a timestamp reads as by the C library");
        fuzz::require(orvane::formatDisplayDate(text, clock).size() == 12, "a listing's date is 12 characters wide");
    } else {
        fuzz::requireSame(orvane::formatDisplayDate(text, clock), text, "another text stays");
    }
    const std::string shown = orvane::formatISODisplayDate(text, clock);
    if (const auto instant = platform::parseIsoInstant(text)) {
        fields = {};
        fuzz::require(::strptime(copy.c_str(), "%Y-%m-%dT%H:%M:%S", &fields) != nullptr, "the C library reads it too");
        const bool isUtc = text.ends_with('Z');
        const int sign = isUtc ? 0 : text[text.size() - 6] == '-' ? -1 : 1;
        const auto digits = [&](std::size_t fromEnd) {
            return std::atoi(copy.substr(copy.size() - fromEnd, 2).c_str());
        };
        const int offset = isUtc ? 0 : sign * (digits(5) * 60 + digits(2)) * 60;
        fuzz::require(::timegm(&fields) - offset == *instant, "an instant reads as by the C library");
        const bool hasFourDigits = *instant < lastInstant - 2 * day;
        fuzz::require(!hasFourDigits || shown.size() == 12, "a listing's date is 12 characters wide");
    } else {
        fuzz::requireSame(shown, "", "another text shows nothing");
    }
    if (platform::isTimeZoneIdentifier(text)) {
        fuzz::require(text.find('.') == std::string_view::npos && !text.starts_with('/'), "a zone is in the database");
    }
}

/// As the process's own zone. The environment keeps the last setting for good, so it is one text that changes.
void enterZone(std::string_view zone) {
    static std::string setting;
    setting = "TZ=" + std::string(zone.substr(0, zone.find('\0')));
    ::putenv(setting.data());
    ::tzset();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::string_view zone = input.line();
    enterZone(zone);
    fuzz::require(platform::isTimeZoneIdentifier(platform::currentTimeZoneIdentifier()), "the own zone is known");
    checkText(input.line());
    if (!platform::isTimeZoneIdentifier(zone)) {
        return 0; // A rule may be one that no country would have.
    }
    platform::LocalClock clock(0);
    while (!input.rest().empty()) {
        constexpr auto range = static_cast<std::uint64_t>(lastInstant - firstInstant);
        const Instant instant = firstInstant + static_cast<Instant>(input.number(5) % range);
        checkInstant(instant, clock);
        checkIsoInstant(instant, static_cast<Instant>(input.number(2) % 2879) - 1439);
    }
    return 0;
}
