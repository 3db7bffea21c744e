// Creating, naming and placing contexts and folders.
#include <algorithm>

#include <boost/json.hpp>
#include <boost/uuid/uuid_generators.hpp>
#include <boost/uuid/uuid_io.hpp>

#include "Endpoints.h"
#include "library/Collection.h"
#include "library/Tree.h"

namespace sample {

namespace {

std::string_view requiredName(const json::object& body, std::string_view key) {
    const std::string_view name = text(body, key);
    if (name.empty()) {
        throw RequestError(400, "The " + std::string(key) + " must not be empty.");
    }
    return name;
}

/// Puts the node into the folder that the body names, or at the top of the contexts.
void place(Library& library, Node& node, const Request& request) {
    const std::string_view folderId = text(request.body, askedCollection(request).parentKey);
    if (folderId.empty()) {
        node["parentId"] = text(library.account, "contextsRootId");
        return;
    }
    const Node& folder = ownFolder(library, folderId);
    if (&folder == &node || std::ranges::count(ancestors(library, folder), &node) > 0) {
        throw RequestError(409, "A folder cannot move into itself or into a folder below it.");
    }
    node["parentId"] = folder.at("id");
}

void takeEmoji(Node& node, const json::object& body) {
    if (const json::value* emoji = body.if_contains("emoji")) {
        node["emoji"] = *emoji;
    }
}

Node newNode(Library& library, const Request& request) {
    const Collection& collection = askedCollection(request);
    Node node{{"id", to_string(boost::uuids::random_generator()())},
              {"owner", library.users.front().at("id")},
              {"kind", collection.kind},
              {"name", requiredName(request.body, collection.nameKey)},
              {"originalCreatedAt", isoTimestamp(now())},
              {"updatedAt", isoTimestamp(now())}};
    takeEmoji(node, request.body);
    place(library, node, request);
    return node;
}

/// What a folder or context is called now and where it is.
json::object standing(const Library& library, const Node& node, const Request& request) {
    const Collection& collection = askedCollection(request);
    json::object answer{{collection.idKey, node.at("id")}, {"name", node.at("name")}};
    if (text(node, "parentId") != text(library.account, "contextsRootId")) {
        answer[collection.parentKey] = node.at("parentId");
    }
    return answer;
}

json::value createFolder(Library& library, const Request& request) {
    Node node = newNode(library, request);
    node["isContainer"] = true;
    library.nodes.push_back(node);
    return {{"id", node.at("id")}, {"name", node.at("name")}};
}

json::value createContext(Library& library, const Request& request) {
    Node node = newNode(library, request);
    node["text"] = text(request.body, "markdown");
    if (const json::value* sources = request.body.if_contains("sources")) {
        for (const json::value& id : sources->as_array()) {
            knownNode(library, id.as_string());
        }
        node["sources"] = *sources;
    }
    library.nodes.push_back(node);
    return {{"id", node.at("id")}, {"name", node.at("name")}, {"cloudSyncPending", false}};
}

json::value renameNode(Library& library, const Request& request) {
    Node& node = askedOwnNode(library, request);
    node["name"] = requiredName(request.body, "name");
    takeEmoji(node, request.body);
    markChanged(node);
    return standing(library, node, request);
}

json::value moveNode(Library& library, const Request& request) {
    Node& node = askedOwnNode(library, request);
    place(library, node, request);
    markChanged(node);
    return standing(library, node, request);
}

} // namespace

Endpoints filingEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"POST", "/api/contexts", createContext},         {"POST", "/api/contexts/{id}/rename", renameNode},
        {"POST", "/api/contexts/{id}/move", moveNode},    {"POST", "/api/folders", createFolder},
        {"POST", "/api/folders/{id}/rename", renameNode}, {"POST", "/api/folders/{id}/move", moveNode},
    };
    return endpoints;
}

} // namespace sample
