#include "shell/Ls.h"

#include "core/Identifiers.h"
#include "shell/NodeListing.h"

namespace orvane {

CommandConfiguration Ls::configuration() {
    return {.commandName = "ls", .abstract = "List the children of a node, or the source roots when no node is given."};
}

void Ls::validate() const {
    if (parent && !isUUID(*parent) && !parent->starts_with("grp_")) {
        throw ValidationError{"parent must be a UUID or a grp_ group id."};
    }
    validatePage(limit, offset);
}

void Ls::run() const {
    const QueryItems items = QueryItems()
                                 .add("limit", limit)
                                 .add("offset", offset)
                                 .addIfGiven("parentId", parent)
                                 .addIfGiven("kind", type)
                                 .addIfGiven("since", since)
                                 .addIfGiven("until", until)
                                 .addIfGiven("owner", owner)
                                 .addIfGiven("name", name)
                                 .addIfGiven("initiated", initiated)
                                 .addIfSet("sort", sortByTime, "updated")
                                 .add(emailFilterItems(*email))
                                 .add("cliVerb", "ls");
    renderNodeListing(buildQueryPath("/api/nodes", items), "ls", offset, json);
}

} // namespace orvane
