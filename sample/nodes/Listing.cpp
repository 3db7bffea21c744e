// The lists of nodes of one sort: contexts, folders, transcripts and sources.
#include <algorithm>

#include <boost/json.hpp>

#include "Endpoints.h"
#include "library/Collection.h"
#include "library/NodeFilter.h"
#include "library/NodeRecord.h"
#include "library/Tree.h"

namespace sample {

namespace {

/// The record with the folder around the node, unless that is the top of the contexts.
json::object filedRecord(const Library& library, const Node& node) {
    json::object record = nodeRecord(library, node);
    const Node* parent = library.findNode(text(node, "parentId"));
    if (parent && text(*parent, "kind") == "orvane_folder") {
        const bool isFolder = text(node, "kind") == "orvane_folder";
        record[isFolder ? "parentId" : "folderId"] = parent->at("id");
        record[isFolder ? "parentName" : "folderName"] = parent->at("name");
    }
    return record;
}

json::array filedRecords(const Library& library, const NodeList& nodes, std::size_t limit) {
    json::array records;
    for (std::size_t at = 0; at < std::min(limit, nodes.size()); ++at) {
        records.push_back(filedRecord(library, *nodes[at]));
    }
    return records;
}

/// The nodes of one kind below `parent`, the newest first.
NodeList nodesOfKind(const Library& library, const Node* parent, bool recursive, std::string_view kind) {
    NodeList nodes = nodesBelow(library, parent, recursive);
    std::erase_if(nodes, [&](const Node* node) { return !isOfKind(*node, kind); });
    sortNewestFirst(nodes);
    return nodes;
}

/// Whether the node or something below it is of the kind.
bool holdsKind(const Library& library, const Node& node, std::string_view kind) {
    return isOfKind(node, kind) || !nodesOfKind(library, &node, true, kind).empty();
}

json::object listed(const Library& library, std::string_view word, const NodeList& nodes, std::size_t limit) {
    return {{word, filedRecords(library, nodes, limit)}, {"total", nodes.size()}};
}

json::value listCollection(Library& library, const Request& request) {
    const Collection& collection = askedCollection(request);
    return listed(library, collection.word, nodesOfKind(library, nullptr, true, collection.kind),
                  request.number("limit", 100));
}

json::value readFolder(Library& library, const Request& request) {
    const Node& folder = askedNode(library, request);
    constexpr auto all = static_cast<std::size_t>(-1);
    json::object record = filedRecord(library, folder);
    record["contexts"] = filedRecords(library, nodesOfKind(library, &folder, false, "orvane_context"), all);
    record["folders"] = filedRecords(library, nodesOfKind(library, &folder, false, "orvane_folder"), all);
    return record;
}

json::value listTranscripts(Library& library, const Request& request) {
    NodeFilter filter = requestedFilter(library, request, "kind", "current_user");
    filter.kind = "transcript";
    if (auto type = request.text("type")) {
        std::ranges::replace(*type, '-', '_');
        filter.kind = *type + "_chat";
    }
    NodeList nodes = nodesOfKind(library, nullptr, true, "transcript");
    std::erase_if(nodes, [&](const Node* node) { return !matches(library, *node, filter); });
    return listed(library, "transcripts", nodes, request.number("limit", 50));
}

json::value listSources(Library& library, const Request& request) {
    NodeFilter filter = requestedFilter(library, request, "sourceType", "current_user");
    const std::string type = std::exchange(filter.kind, "all");
    NodeList nodes = nodesBelow(library, requestedParent(library, request), false);
    std::erase_if(
        nodes, [&](const Node* node) { return !matches(library, *node, filter) || !holdsKind(library, *node, type); });
    sortNewestFirst(nodes);
    return listed(library, "sources", nodes, request.number("limit", 100));
}

} // namespace

Endpoints listingEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"GET", "/api/sources", listSources},         {"GET", "/api/contexts", listCollection},
        {"GET", "/api/folders", listCollection},      {"GET", "/api/folders/{id}", readFolder},
        {"GET", "/api/transcripts", listTranscripts},
    };
    return endpoints;
}

} // namespace sample
