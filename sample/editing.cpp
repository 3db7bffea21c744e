#include <algorithm>

#include <boost/json.hpp>
#include <boost/uuid/uuid_generators.hpp>
#include <boost/uuid/uuid_io.hpp>

#include "body.h"
#include "handlers.h"
#include "parameters.h"
#include "replacing.h"

namespace sample {

namespace json = boost::json;

namespace {

/// What differs between the paths of contexts and of folders.
struct Collection {
    std::string_view kind;
    std::string_view idKey;
    std::string_view nameKey; ///< In the body that creates one.
    std::string_view parentKey;
    std::string_view topKey; ///< The flag that moves one out of every folder.
};

constexpr Collection contexts{"orvane_context", "contextId", "title", "folderId", "unfiled"};
constexpr Collection folders{"orvane_folder", "folderId", "name", "parentId", "root"};

const Collection& askedCollection(const Request& request) {
    return request.path.at(1) == "contexts" ? contexts : folders;
}

/// A node of a kind or a group that the signed-in user may change.
Node& ownNode(Library& library, std::string_view id, std::string_view kind) {
    const Node& node = knownNode(library, id);
    const json::object& owner = *library.findUser(text(node, "owner"));
    if (!isOfKind(node, kind)) {
        throw RequestError(400, "Node " + std::string(id) + " is of kind " + std::string(text(node, "kind")) +
                                    ", not " + std::string(kind) + ".");
    }
    if (!library.isCurrentUser(owner)) {
        throw RequestError(403, "Node " + std::string(id) + " belongs to " + std::string(text(owner, "name")) +
                                    " and can only be read.");
    }
    return const_cast<Node&>(node); // The library it lies in may be changed.
}

Node& askedNode(Library& library, const Request& request) {
    return ownNode(library, request.id(), askedCollection(request).kind);
}

std::string now() {
    return isoTimestamp(std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now()));
}

void markChanged(Node& node) {
    node["updatedAt"] = now();
    node.erase("originalUpdatedAt");
}

/// Puts the node into the folder that the body names, or at the top of the contexts.
void place(Library& library, Node& node, const Collection& collection, const json::object& body) {
    const auto folderId = optionalText(body, collection.parentKey);
    if (!folderId) {
        node["parentId"] = text(library.account, "contextsRootId");
        return;
    }
    const Node& folder = ownNode(library, *folderId, folders.kind);
    if (&folder == &node || std::ranges::count(ancestors(library, folder), &node) > 0) {
        throw RequestError(409, "A folder cannot move into itself or into a folder below it.");
    }
    node["parentId"] = folder.at("id");
}

Node newNode(Library& library, const Collection& collection, const json::object& body) {
    Node node{{"id", to_string(boost::uuids::random_generator()())},
              {"owner", library.users.front().at("id")},
              {"kind", collection.kind},
              {"name", requiredName(body, collection.nameKey)},
              {"originalCreatedAt", now()},
              {"updatedAt", now()}};
    if (const auto emoji = optionalText(body, "emoji")) {
        node["emoji"] = *emoji;
    }
    place(library, node, collection, body);
    return node;
}

/// What a folder or context is called now and where it is.
Response standing(const Library& library, const Node& node, const Collection& collection) {
    json::object body{{collection.idKey, node.at("id")}, {"name", node.at("name")}};
    const Node* parent = library.findNode(text(node, "parentId"));
    if (parent && isOfKind(*parent, folders.kind)) {
        body[collection.parentKey] = parent->at("id");
    }
    return success(body);
}

/// Takes the node and all below it out of the library, and tells how many they were.
std::size_t takeOut(Library& library, const Node& node) {
    std::vector<std::string> doomed{std::string(text(node, "id"))};
    for (const Node* below : nodesBelow(library, &node, true)) {
        doomed.emplace_back(text(*below, "id"));
    }
    return std::erase_if(library.nodes, [&](const Node& each) { return std::ranges::count(doomed, text(each, "id")); });
}

Node& askedTranscript(Library& library, const Request& request) {
    return ownNode(library, request.id(), "transcript");
}

} // namespace

Response createFolder(Library& library, const Request& request) {
    Node node = newNode(library, folders, bodyOf(request));
    node["isContainer"] = true;
    library.nodes.push_back(node);
    return success({{"id", node.at("id")}, {"name", node.at("name")}});
}

Response createContext(Library& library, const Request& request) {
    const json::object body = bodyOf(request);
    Node node = newNode(library, contexts, body);
    node["text"] = requiredText(body, "markdown");
    json::array sources;
    for (const std::string& id : optionalTexts(body, "sources")) {
        sources.push_back(knownNode(library, id).at("id"));
    }
    if (!sources.empty()) {
        node["sources"] = std::move(sources);
    }
    library.nodes.push_back(node);
    return success({{"id", node.at("id")}, {"name", node.at("name")}, {"cloudSyncPending", false}});
}

Response editContext(Library& library, const Request& request) {
    Node& node = askedNode(library, request);
    const json::object body = bodyOf(request);
    const bool lines = body.contains("old_lines") || body.contains("new_lines");
    if (lines == (body.contains("old_string") || body.contains("new_string"))) {
        throw RequestError(400, "Give either old_string and new_string, or old_lines and new_lines.");
    }
    json::object result{{"contextId", node.at("id")}};
    if (lines) {
        node["text"] =
            replaceLines(text(node, "text"), optionalTexts(body, "old_lines"), optionalTexts(body, "new_lines"));
    } else {
        const bool everywhere = optionalFlag(body, "replace_all");
        node["text"] = replaceText(text(node, "text"), requiredText(body, "old_string"),
                                   requiredText(body, "new_string"), everywhere);
        result["replace_all"] = everywhere;
    }
    markChanged(node);
    return success(result);
}

Response renameNode(Library& library, const Request& request) {
    Node& node = askedNode(library, request);
    const json::object body = bodyOf(request);
    const std::string name = requiredName(body, "name");
    if (const auto emoji = optionalText(body, "emoji")) {
        node["emoji"] = *emoji;
    }
    node["name"] = name;
    markChanged(node);
    return standing(library, node, askedCollection(request));
}

Response moveNode(Library& library, const Request& request) {
    const Collection& collection = askedCollection(request);
    Node& node = askedNode(library, request);
    const json::object body = bodyOf(request);
    if (optionalFlag(body, collection.topKey) == body.contains(collection.parentKey)) {
        throw RequestError(400, "Give either " + std::string(collection.parentKey) + ", or " +
                                    std::string(collection.topKey) + " as true.");
    }
    place(library, node, collection, body);
    markChanged(node);
    return standing(library, node, collection);
}

Response removeNode(Library& library, const Request& request) {
    const Collection& collection = askedCollection(request);
    const Node& node = askedNode(library, request);
    if (isContainer(node) && !nodesBelow(library, &node, false).empty()) {
        throw RequestError(409, "The folder is not empty. Move or delete what is in it first.");
    }
    const json::value id = node.at("id");
    takeOut(library, node);
    return success({{collection.idKey, id}});
}

Response previewTranscriptRemoval(Library& library, const Request& request) {
    const Node& node = askedTranscript(library, request);
    return success({{"message", "This will remove \"" + std::string(text(node, "name")) +
                                    "\" from the sample library until the next start."}});
}

Response removeTranscript(Library& library, const Request& request) {
    const Node& node = askedTranscript(library, request);
    bodyOf(request);
    json::object result{{"name", node.at("name")}, {"transcriptId", node.at("id")}};
    result["deletedNodes"] = takeOut(library, node);
    return success(result);
}

} // namespace sample
