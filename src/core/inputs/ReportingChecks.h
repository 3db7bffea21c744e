// What the commands that report usage figures ask of their options.
#pragma once

#include <array>
#include <string_view>

namespace orvane {

inline constexpr const char* granularityHelp = "Trend bucket size: hour, day, week, month, or year.";

inline constexpr std::array<std::string_view, 5> granularities{"hour", "day", "week", "month", "year"};

/// Throws ValidationError unless `text` is one of `granularities`, exactly.
void validateGranularity(std::string_view text);

/// Throws ValidationError unless `text` names a zone of the system's zone database.
void validateTimeZone(std::string_view text);

} // namespace orvane
