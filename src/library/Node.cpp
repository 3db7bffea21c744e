#include "library/Node.h"

#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "shell/Vocabulary.h"

namespace orvane {

CommandConfiguration Node::configuration() {
    return {
        .abstract = "List, read, and search first-class Orvane graph nodes.",
        .ungroupedSubcommands = {CommandType::of<NodeList>(), CommandType::of<NodeGet>(),
                                 CommandType::of<NodeSearch>()},
        .defaultSubcommand = CommandType::of<NodeList>(),
    };
}

CommandConfiguration NodeList::configuration() {
    return {.commandName = "list",
            .abstract = "List nodes globally or direct children under a node or integration root."};
}

void NodeList::validate() const {
    if (parent && !isUUID(*parent) && !parent->starts_with("grp_")) {
        throw ValidationError{"parent must be a UUID or a grp_ group id."};
    }
    validatePage(limit, offset);
}

void NodeList::run() const {
    const QueryItems items = QueryItems()
                                 .add("limit", limit)
                                 .add("offset", offset)
                                 .addIfGiven("parentId", parent)
                                 .addIfGiven("kind", kind)
                                 .addIfGiven("since", since)
                                 .addIfGiven("until", until)
                                 .addIfGiven("owner", owner)
                                 .addIfGiven("name", name);
    printReply(serviceGet(buildQueryPath("/api/nodes", items), standardTimeout));
}

CommandConfiguration NodeGet::configuration() {
    return {.commandName = "get", .abstract = "Get a node by ID, including readable content when available."};
}

void NodeGet::validate() const {
    validateUUID(*id);
    validateOffset(offset);
    validateLimit(limit);
    if (const auto fault = headTailFault(*ends)) {
        throw ValidationError{*fault};
    }
}

void NodeGet::run() const {
    const QueryItems items = QueryItems().add("offset", offset).add("limit", limit).add(headTailItems(*ends));
    printReply(serviceGet(buildQueryPath("/api/nodes/" + *id, items), standardTimeout));
}

CommandConfiguration NodeSearch::configuration() {
    return {.commandName = "search", .abstract = "Search nodes, optionally scoped under a node or integration root."};
}

void NodeSearch::validate() const {
    if (parent && !isUUID(*parent)) {
        throw ValidationError{"parent must be a UUID."};
    }
    validateLimit(limit);
}

void NodeSearch::run() const {
    const QueryItems items = QueryItems()
                                 .add("q", *query)
                                 .add("limit", limit)
                                 .addIfGiven("parentId", parent)
                                 .addIfGiven("kind", kind)
                                 .addIfGiven("since", since)
                                 .addIfGiven("until", until)
                                 .addIfGiven("owner", owner)
                                 .addIfSet("literal", literal);
    printReply(serviceGet(buildQueryPath("/api/nodes/search", items), standardTimeout));
}

} // namespace orvane
