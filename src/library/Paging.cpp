#include "library/Paging.h"

#include "core/CLIError.h"

namespace orvane {

QueryItems chunkPageItems(const ChunkPageOptions& options) {
    return QueryItems().addIfGiven("offset", options.offset).addIfGiven("limit", options.limit);
}

QueryItems headTailItems(const HeadTailOptions& options) {
    return QueryItems().addIfGiven("headLimit", options.headLimit).addIfGiven("tailLimit", options.tailLimit);
}

std::optional<std::string> headTailFault(const HeadTailOptions& options) {
    if (options.headLimit && (*options.headLimit < 1 || *options.headLimit > 25)) {
        return "head-limit must be between 1 and 25.";
    }
    if (options.tailLimit && (*options.tailLimit < 1 || *options.tailLimit > 25)) {
        return "tail-limit must be between 1 and 25.";
    }
    return std::nullopt;
}

void requireListLimit(Integer limit) {
    if (limit > 500) {
        throw CLIError::invalidInput("Limit must be 500 or less.");
    }
}

} // namespace orvane
