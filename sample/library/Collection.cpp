#include "library/Collection.h"

#include <algorithm>

#include "library/NodeFilter.h"

namespace sample {

namespace {

constexpr Collection everything{"", "all", "", "", ""};

constexpr Collection collections[] = {
    {"contexts", "orvane_context", "contextId", "title", "folderId"},
    {"folders", "orvane_folder", "folderId", "name", "parentId"},
    {"transcripts", "transcript", "transcriptId", "", ""},
};

const Node& nodeOfKind(const Library& library, std::string_view id, std::string_view kind) {
    const Node& node = knownNode(library, id);
    if (!isOfKind(node, kind)) {
        throw RequestError(404, "Node " + std::string(id) + " is of kind " + std::string(text(node, "kind")) +
                                    ", not " + std::string(kind) + ".");
    }
    return node;
}

Node& ownNode(Library& library, std::string_view id, std::string_view kind) {
    const Node& node = nodeOfKind(library, id, kind);
    const auto& owner = *library.findUser(text(node, "owner"));
    if (!library.isCurrentUser(owner)) {
        throw RequestError(403, "Node " + std::string(id) + " belongs to " + std::string(text(owner, "name")) +
                                    " and can only be read.");
    }
    return const_cast<Node&>(node); // The library it lies in may be changed.
}

} // namespace

const Collection& askedCollection(const Request& request) {
    const auto* found = std::ranges::find(collections, request.path.at(1), &Collection::word);
    return found == std::end(collections) ? everything : *found;
}

const Node& knownNode(const Library& library, std::string_view id) {
    const Node* node = library.findNode(id);
    if (!node) {
        throw RequestError(404, "No node has the id " + std::string(id) + ".");
    }
    return *node;
}

const Node* requestedParent(const Library& library, const Request& request) {
    const auto id = request.text("parentId");
    return id ? &knownNode(library, *id) : nullptr;
}

const Node& askedNode(const Library& library, const Request& request) {
    return nodeOfKind(library, request.id(), askedCollection(request).kind);
}

Node& askedOwnNode(Library& library, const Request& request) {
    return ownNode(library, request.id(), askedCollection(request).kind);
}

Node& ownFolder(Library& library, std::string_view id) {
    return ownNode(library, id, "orvane_folder");
}

Node& ownContext(Library& library, std::string_view id) {
    return ownNode(library, id, "orvane_context");
}

} // namespace sample
