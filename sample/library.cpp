#include "library.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

#include <boost/json.hpp>

namespace sample {

namespace json = boost::json;

namespace {

std::string readFile(const std::string& path) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
    std::string content;
    char block[16384];
    while (const std::size_t count = file ? std::fread(block, 1, sizeof block, file.get()) : 0) {
        content.append(block, count);
    }
    if (!file || std::ferror(file.get())) {
        throw std::runtime_error(std::strerror(errno));
    }
    return content;
}

void require(bool condition, const std::string& complaint) {
    if (!condition) {
        throw std::runtime_error(complaint);
    }
}

std::vector<json::object> takeObjects(json::object& object, std::string_view key) {
    const json::value* list = object.if_contains(key);
    require(list && list->is_array(), "it has no list of " + std::string(key));
    std::vector<json::object> found;
    for (const json::value& entry : list->get_array()) {
        require(entry.is_object(), "its list of " + std::string(key) + " holds something else");
        found.push_back(entry.get_object());
    }
    object.erase(key);
    return found;
}

void checkTexts(const json::object& object, std::initializer_list<std::string_view> keys) {
    for (const std::string_view key : keys) {
        require(!text(object, key).empty(), "an entry lacks its " + std::string(key) + ": " + json::serialize(object));
    }
}

void checkNode(const Library& library, const Node& node) {
    checkTexts(node, {"id", "owner", "name", "kind", "updatedAt"});
    const std::string id(text(node, "id"));
    require(!library.findNode(id), "two nodes have the id " + id);
    require(library.findUser(text(node, "owner")), "node " + id + " has an unknown owner");
    require(text(node, "parentId").empty() || library.findNode(text(node, "parentId")),
            "node " + id + " does not stand behind its parent");
    for (const auto* key : {"updatedAt", "originalUpdatedAt", "originalCreatedAt"}) {
        require(!node.contains(key) || parseInstant(text(node, key)), "node " + id + " has no usable " + key);
    }
}

Library readLibrary(const std::string& content) {
    json::error_code error;
    json::value root = json::parse(content, error);
    require(!error && root.is_object(), error ? "it is not valid JSON (" + error.message() + ")" : "it is no object");
    Library library;
    library.account = root.get_object();
    library.users = takeObjects(library.account, "users");
    require(!library.users.empty(), "it has no users");
    for (const json::object& user : library.users) {
        checkTexts(user, {"id", "name", "email"});
    }
    for (Node& node : takeObjects(library.account, "nodes")) {
        checkNode(library, node);
        library.nodes.push_back(std::move(node));
    }
    const std::string_view rootId = text(library.account, "contextsRootId");
    const Node* top = library.findNode(rootId);
    require(rootId.empty() || (top && text(*top, "kind") == "integration_root" && text(*top, "parentId").empty()),
            "its contextsRootId is not the id of an integration_root without a parent");
    return library;
}

} // namespace

std::string_view text(const json::object& object, std::string_view key) {
    const json::value* value = object.if_contains(key);
    const json::string* found = value ? value->if_string() : nullptr;
    return found ? std::string_view(*found) : std::string_view();
}

bool isContainer(const Node& node) {
    const json::value* value = node.if_contains("isContainer");
    return value && *value == true;
}

Instant lastChange(const Node& node) {
    const auto original = parseInstant(text(node, "originalUpdatedAt"));
    return original ? *original : parseInstant(text(node, "updatedAt")).value_or(Instant());
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
