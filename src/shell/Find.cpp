#include "shell/Find.h"

#include "core/Identifiers.h"
#include "shell/NodeListing.h"

namespace orvane {

CommandConfiguration Find::configuration() {
    return {.commandName = "find",
            .abstract = "List every descendant of a node (any depth) matching the filters, newest first. Use the "
                        "Contexts root id to search all your contexts and folders."};
}

void Find::validate() const {
    if (!isUUID(*parent)) {
        throw ValidationError{"parent must be a UUID."};
    }
    validatePage(limit, offset);
}

void Find::run() const {
    const QueryItems items = QueryItems()
                                 .add("recursive", "true")
                                 .add("parentId", *parent)
                                 .add("limit", limit)
                                 .add("offset", offset)
                                 .addIfGiven("kind", type)
                                 .addIfGiven("since", since)
                                 .addIfGiven("until", until)
                                 .addIfGiven("owner", owner)
                                 .addIfGiven("name", name)
                                 .addIfGiven("initiated", initiated)
                                 .add(emailFilterItems(*email))
                                 .add("cliVerb", "find");
    renderNodeListing(buildQueryPath("/api/nodes", items), "find", offset, json);
}

} // namespace orvane
