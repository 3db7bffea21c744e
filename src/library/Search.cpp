#include "library/Search.h"

#include "core/Identifiers.h"
#include "core/Query.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"

namespace orvane {

CommandConfiguration Search::configuration() {
    return {.commandName = "search", .abstract = "Search across your Orvane documents."};
}

void Search::validate() const {
    if (limit < 1) {
        throw ValidationError{"Limit must be greater than 0."};
    }
    if (limit > 500) {
        throw ValidationError{"Limit must be 500 or less."};
    }
    if (parentId && !isUUID(*parentId)) {
        throw ValidationError{"parent-id must be a UUID."};
    }
}

void Search::run() const {
    const QueryItems items = QueryItems()
                                 .add("q", *query)
                                 .add("limit", limit)
                                 .addIfGiven("type", type)
                                 .addIfGiven("owner", owner)
                                 .addIfGiven("parentId", parentId)
                                 .addIfSet("literal", literal);
    printReply(serviceGet(buildQueryPath("/api/contexts/search", items), standardTimeout));
}

} // namespace orvane
