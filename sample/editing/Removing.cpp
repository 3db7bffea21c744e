// Taking contexts, folders and transcripts out of the library.
#include <algorithm>

#include <boost/json.hpp>

#include "Endpoints.h"
#include "library/Collection.h"
#include "library/Tree.h"

namespace sample {

namespace {

/// Takes the node and all below it out of the library, and tells how many they were.
std::size_t takeOut(Library& library, const Node& node) {
    std::vector<std::string> doomed{std::string(text(node, "id"))};
    for (const Node* below : nodesBelow(library, &node, true)) {
        doomed.emplace_back(text(*below, "id"));
    }
    return std::erase_if(library.nodes, [&](const Node& each) { return std::ranges::count(doomed, text(each, "id")); });
}

json::value removeNode(Library& library, const Request& request) {
    const Node& node = askedOwnNode(library, request);
    if (!nodesBelow(library, &node, false).empty()) {
        throw RequestError(409, "The folder is not empty. Move or delete what is in it first.");
    }
    json::object answer{{askedCollection(request).idKey, node.at("id")}};
    takeOut(library, node);
    return answer;
}

json::value previewTranscriptRemoval(Library& library, const Request& request) {
    const std::string name(text(askedOwnNode(library, request), "name"));
    return {{"message", "This will remove \"" + name + "\" from the sample library until the next start."}};
}

json::value removeTranscript(Library& library, const Request& request) {
    const Node& node = askedOwnNode(library, request);
    json::object answer{{"name", node.at("name")}, {"transcriptId", node.at("id")}};
    answer["deletedNodes"] = takeOut(library, node);
    return answer;
}

} // namespace

Endpoints removingEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"DELETE", "/api/contexts/{id}", removeNode},
        {"DELETE", "/api/folders/{id}", removeNode},
        {"GET", "/api/transcripts/{id}/delete-preview", previewTranscriptRemoval},
        {"POST", "/api/transcripts/{id}/delete", removeTranscript},
    };
    return endpoints;
}

} // namespace sample
