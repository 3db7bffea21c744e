#include "library/Library.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include <boost/json.hpp>

namespace sample {

namespace json = boost::json;

namespace {

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string content(std::istreambuf_iterator<char>(file), {});
    if (!file) {
        throw std::runtime_error("it cannot be read");
    }
    return content;
}

void require(bool condition, const std::string& complaint) {
    if (!condition) {
        throw std::runtime_error(complaint);
    }
}

/// Gathers every text below `value` that is an instant, whatever it stands for.
void findInstants(json::value& value, std::vector<json::string*>& found) {
    if (json::object* object = value.if_object()) {
        for (auto& member : *object) {
            findInstants(member.value(), found);
        }
    } else if (json::array* array = value.if_array()) {
        for (json::value& element : *array) {
            findInstants(element, found);
        }
    } else if (json::string* text = value.if_string(); text && text->ends_with('Z') && parseInstant(text->c_str())) {
        found.push_back(text);
    }
}

void moveToPresent(json::value& root) {
    std::vector<json::string*> times;
    findInstants(root, times);
    Instant newest;
    for (const json::string* time : times) {
        newest = std::max(newest, *parseInstant(time->c_str()));
    }
    const auto shift = now() - newest;
    for (json::string* time : times) {
        *time = isoTimestamp(*parseInstant(time->c_str()) + shift);
    }
}

std::vector<json::object> takeObjects(json::object& object, std::string_view key) {
    const json::value* list = object.if_contains(key);
    require(list && list->is_array(), "it has no list of " + std::string(key));
    std::vector<json::object> found;
    for (const json::value& entry : list->get_array()) {
        found.push_back(entry.as_object());
    }
    object.erase(key);
    return found;
}

void checkNode(const Library& library, const Node& node) {
    const std::string id(text(node, "id"));
    const std::string entry = "node " + id;
    require(!id.empty() && !library.findNode(id), entry + " has no id of its own");
    require(!text(node, "name").empty() && !text(node, "kind").empty(), entry + " has no name or no kind");
    require(library.findUser(text(node, "owner")), entry + " has an unknown owner");
    require(!node.contains("parentId") || library.findNode(text(node, "parentId")),
            entry + " does not stand behind its parent");
    require(instantUnder(node, "updatedAt").has_value(), entry + " has no usable updatedAt");
}

Library readLibrary(const std::string& content) {
    json::error_code error;
    json::value root = json::parse(content, error);
    require(!error && root.is_object(), "it is no JSON object" + (error ? " (" + error.message() + ")" : ""));
    moveToPresent(root);
    Library library;
    library.account = root.get_object();
    library.users = takeObjects(library.account, "users");
    require(!library.users.empty(), "it has no users");
    for (Node& node : takeObjects(library.account, "nodes")) {
        checkNode(library, node);
        library.nodes.push_back(std::move(node));
    }
    for (const auto* group : {"ontology", "skill"}) {
        if (json::value* found = library.account.if_contains(group)) {
            json::object lists = found->as_object();
            for (const auto& member : found->as_object()) {
                library.records[member.key()] = takeObjects(lists, member.key());
            }
            library.account.erase(group);
        }
    }
    return library;
}

} // namespace

std::string_view text(const json::object& object, std::string_view key) {
    const json::value* value = object.if_contains(key);
    const json::string* found = value ? value->if_string() : nullptr;
    return found ? std::string_view(*found) : std::string_view();
}

std::optional<Instant> instantUnder(const json::object& object, std::string_view key) {
    return parseInstant(std::string(text(object, key)));
}

bool isContainer(const Node& node) {
    const json::value* value = node.if_contains("isContainer");
    return value && *value == true;
}

Instant lastChange(const Node& node) {
    const auto original = instantUnder(node, "originalUpdatedAt");
    return original ? *original : instantUnder(node, "updatedAt").value_or(Instant());
}

void markChanged(Node& node) {
    node["updatedAt"] = isoTimestamp(now());
    node.erase("originalUpdatedAt");
}

const Node* Library::findNode(std::string_view id) const {
    const auto lower = [](char letter) { return letter >= 'A' && letter <= 'Z' ? letter - 'A' + 'a' : letter; };
    const auto found = std::ranges::find_if(
        nodes, [&](const Node& node) { return std::ranges::equal(text(node, "id"), id, {}, lower, lower); });
    return found == nodes.end() ? nullptr : &*found;
}

const json::object* Library::findUser(std::string_view id) const {
    const auto found = std::ranges::find(users, id, [](const json::object& user) { return text(user, "id"); });
    return found == users.end() ? nullptr : &*found;
}

Library loadLibrary(const std::string& path) {
    try {
        return readLibrary(readFile(path));
    } catch (const std::exception& error) {
        throw std::runtime_error("Cannot use " + path + " as a library: " + error.what() + ".");
    }
}

} // namespace sample
