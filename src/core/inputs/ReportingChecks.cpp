#include "core/inputs/ReportingChecks.h"

#include <algorithm>

#include "core/CommandModel.h"
#include "platform/time/TimeZones.h"

namespace orvane {

void validateGranularity(std::string_view text) {
    if (std::find(granularities.begin(), granularities.end(), text) == granularities.end()) {
        throw ValidationError{"granularity must be hour, day, week, month, or year."};
    }
}

void validateTimeZone(std::string_view text) {
    if (!platform::isTimeZoneIdentifier(text)) {
        throw ValidationError{"timezone must be a valid IANA timezone."};
    }
}

} // namespace orvane
