#include "library/Source.h"

#include <algorithm>

#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "platform/Text.h"
#include "shell/Vocabulary.h"

namespace orvane {

namespace {

void validateSourceType(const std::string& type) {
    const std::vector<std::string> types{"all",      "context",   "transcript",   "profile",    "notes",
                                         "obsidian", "document",  "local_folder", "sharepoint", "memory",
                                         "meeting",  "messaging", "email"};
    const bool isAlias = type == "granola" || type == "read_ai"; // former words, accepted without being offered
    if (!isAlias && std::find(types.begin(), types.end(), type) == types.end()) {
        throw ValidationError{"source-type must be one of: " + platform::joined(types, ", ") + "."};
    }
}

} // namespace

CommandConfiguration Source::configuration() {
    return {
        .abstract = "Browse available source worlds and folder-like source nodes.",
        .ungroupedSubcommands = {CommandType::of<SourceList>(), CommandType::of<SourceGet>()},
        .defaultSubcommand = CommandType::of<SourceList>(),
    };
}

CommandConfiguration SourceList::configuration() {
    return {.commandName = "list", .abstract = "List source groups or children of a source node."};
}

void SourceList::validate() const {
    if (parentId && !isUUID(*parentId)) {
        throw ValidationError{"parent-id must be a UUID."};
    }
    validateSourceType(*sourceType);
    validateLimit(limit);
}

void SourceList::run() const {
    const QueryItems items = QueryItems()
                                 .add("sourceType", *sourceType)
                                 .add("limit", limit)
                                 .addIfGiven("parentId", parentId)
                                 .addIfGiven("since", since)
                                 .addIfGiven("until", until)
                                 .addIfGiven("owner", owner);
    printReply(serviceGet(buildQueryPath("/api/sources", items), standardTimeout));
}

CommandConfiguration SourceGet::configuration() {
    return {.commandName = "get", .abstract = "Read a source node by ID, including Obsidian notes."};
}

void SourceGet::validate() const {
    validateUUID(*id);
    if (page->offset) {
        validateOffset(*page->offset);
    }
    if (page->limit && *page->limit < 1) {
        throw ValidationError{"limit must be >= 1."};
    }
    if (const auto fault = headTailFault(*ends)) {
        throw ValidationError{*fault};
    }
}

void SourceGet::run() const {
    const QueryItems items = chunkPageItems(*page).add(headTailItems(*ends));
    printReply(serviceGet(buildQueryPath("/api/sources/" + *id, items), standardTimeout));
}

} // namespace orvane
