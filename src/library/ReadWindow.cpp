#include "library/ReadWindow.h"

#include "core/inputs/Checks.h"

namespace orvane {

QueryItems ChunkPageOptions::items() const {
    return QueryItems().addIfGiven("offset", offset).addIfGiven("limit", limit);
}

void HeadTailOptions::checkLimits() const {
    constexpr Integer maximum = 25;
    if (headLimit) {
        requireBetween("head-limit", *headLimit, 1, maximum);
    }
    if (tailLimit) {
        requireBetween("tail-limit", *tailLimit, 1, maximum);
    }
}

QueryItems HeadTailOptions::items() const {
    return QueryItems().addIfGiven("headLimit", headLimit).addIfGiven("tailLimit", tailLimit);
}

void requireListLimit(Integer limit) {
    if (limit > 500) {
        throw CLIError::invalidInput("Limit must be 500 or less.");
    }
}

} // namespace orvane
