// Points in time: read from ISO-8601, written as the timestamps that the library shows.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace sample {

using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// Where in its day a date without a time stands.
enum class DayEdge { first, last };

/// Reads "2024-03-07", "2024-03-07T14:05", "2024-03-07T14:05:09.250Z" or "…+02:00". Without a zone it is UTC.
std::optional<Instant> parseInstant(std::string_view text, DayEdge edge = DayEdge::first);

/// "Mar 7, 2024, 2:05 PM UTC".
std::string displayTimestamp(Instant instant);

/// "2024-03-07T14:05:09.250Z".
std::string isoTimestamp(Instant instant);

} // namespace sample
