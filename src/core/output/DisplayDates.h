// Times as listings show them, in the form of a long directory listing: "Mar  7 14:05" for the last and next half year,
// else "Mar  7  2024". Both are 12 characters wide, in the local zone.
#pragma once

#include <string>
#include <string_view>

#include "platform/time/Dates.h"

namespace orvane {

/// For a display timestamp of the service, such as "Mar 7, 2024, 2:05 PM PST", whose last word is left aside. Any
/// other text comes back unchanged. Several dates are shown by one clock.
std::string formatDisplayDate(std::string_view text, platform::LocalClock& clock);
std::string formatDisplayDate(std::string_view text);

/// For an ISO-8601 instant. Any other text gives an empty one.
std::string formatISODisplayDate(std::string_view text, platform::LocalClock& clock);

} // namespace orvane
