// Points in time: read from ISO-8601, written as the timestamps that the library shows.
#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace sample {

using Instant = std::chrono::sys_seconds;

/// Where in its day a date without a time stands.
enum class DayEdge { first, last };

Instant now();

/// Reads "2024-03-07", "2024-03-07T14:05", "2024-03-07T14:05:09.250Z" or "…+02:00", without a zone as local time.
/// Fractions of a second are dropped.
std::optional<Instant> parseInstant(const std::string& text, DayEdge edge = DayEdge::first);

/// "Mar 7, 2024, 2:05 PM PST", in the machine's zone.
std::string displayTimestamp(Instant instant);

/// "2024-03-07T14:05:09Z".
std::string isoTimestamp(Instant instant);

} // namespace sample
