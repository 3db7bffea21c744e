// The skills and bundles of the library: listed, created, renamed, moved, removed.
#include <algorithm>

#include <boost/algorithm/string.hpp>
#include <boost/json.hpp>

#include "Endpoints.h"
#include "library/Text.h"
#include "skills/Skill.h"

namespace sample {

namespace {

bool isBundle(const Record& item) {
    return text(item, "kind") == "bundle";
}

bool isOwn(const Library& library, const Record& item) {
    return library.isCurrentUser(*library.findUser(text(item, "owner")));
}

/// The item the way clients see it.
json::object shown(const Library& library, Record item) {
    const json::object& owner = *library.findUser(text(item, "owner"));
    item["access"] = library.isCurrentUser(owner) ? "owner" : "viewer";
    item["owner"] = owner.at("name");
    item["revision"] = std::to_string(item.at("revision").as_int64());
    if (const json::value* files = item.if_contains("files")) {
        item["validationStatus"] = validationStatus(files->as_object());
        item["packageHash"] = packageHash(files->as_object());
    }
    for (const auto* key : {"files", "agents", "uses"}) {
        item.stable_erase(key);
    }
    return item;
}

json::value items(const Library& library, std::string_view parentId) {
    json::array list;
    for (const Record& item : recordsWith(library, "skills", "parentId", parentId)) {
        list.push_back(shown(library, item));
    }
    return {{"items", std::move(list)}};
}

/// The bundle with that id, for a skill to be in.
const Record& knownBundle(Library& library, std::string_view id) {
    const Record& bundle = knownRecord(library, skillKind(), id);
    if (!isBundle(bundle)) {
        throw RequestError(400, std::string(text(bundle, "name")) + " is a skill, not a bundle.");
    }
    return bundle;
}

void requireRevision(const Record& item, const json::object& body) {
    const std::string revision = std::to_string(item.at("revision").as_int64());
    if (body.contains("ifRevision") && text(body, "ifRevision") != revision) {
        throw RequestError(409, "The item has changed: its revision is " + revision + ".");
    }
}

json::value listSkillRoots(Library& library, const Request&) {
    return items(library, "");
}

json::value listBundle(Library& library, const Request& request) {
    return items(library, text(knownBundle(library, request.path.at(3)), "id"));
}

json::value readSkill(Library& library, const Request& request) {
    return shown(library, askedItem(library, request));
}

json::value createSkill(Library& library, const Request& request) {
    Record place{{"kind", text(request.body, "kind")}};
    if (request.body.contains("parentId")) {
        place["parentId"] = knownBundle(library, text(request.body, "parentId")).at("id");
    }
    const json::string_view content = text(request.body, "content");
    json::object properties{{"name", request.body.at("name")}};
    if (!isBundle(place)) {
        const std::string start = boost::algorithm::join(words(firstCharacters(content, 20)), " ");
        const json::value* given = request.body.if_contains("description");
        properties["description"] = given ? *given : json::value(start.empty() ? "A new skill" : start);
    }
    Record& item = createItem(library, place, properties);
    if (!isBundle(place)) {
        item["files"] = {{"SKILL.md", skillText(text(item, "name"), text(item, "description"), content)}};
    }
    return shown(library, item);
}

json::value renameSkill(Library& library, const Request& request) {
    const std::string id(text(askedOwnItem(library, request), "id"));
    Record& item = changeRecord(library, skillKind(), id, {{"name", request.body.at("name")}});
    markRevised(item);
    return shown(library, item);
}

json::value moveSkill(Library& library, const Request& request) {
    Record& item = askedOwnItem(library, request);
    if (isBundle(item)) {
        throw RequestError(400, "A bundle stays at the top level.");
    }
    if (request.body.contains("topLevel")) {
        item.stable_erase("parentId");
    } else {
        item["parentId"] = knownBundle(library, text(request.body, "parentId")).at("id");
    }
    markRevised(item);
    return shown(library, item);
}

json::value removeSkill(Library& library, const Request& request) {
    const Record& item = askedItem(library, request);
    requireRevision(item, request.body);
    if (!recordsWith(library, "skills", "parentId", request.path.at(3)).empty()) {
        throw RequestError(409, "The bundle " + std::string(text(item, "name")) +
                                    " is in use: skills are in it. Move or remove them first.");
    }
    const bool forEveryone = isOwn(library, item);
    removeRecord(library, skillKind(), request.path.at(3));
    return {{"deletedId", request.path.at(3)}, {"forEveryone", forEveryone}};
}

} // namespace

const RecordKind& skillKind() {
    static const RecordKind kind{
        "skills", "item", {{"name", PropertyType::text, true}, {"description", PropertyType::text}}};
    return kind;
}

Record& askedItem(Library& library, const Request& request) {
    return knownRecord(library, skillKind(), request.path.at(3));
}

Record& askedOwnItem(Library& library, const Request& request) {
    Record& item = askedItem(library, request);
    if (!isOwn(library, item)) {
        throw RequestError(403, "This needs Editor access to " + std::string(text(item, "name")) + ".");
    }
    requireRevision(item, request.body);
    return item;
}

void markRevised(Record& item) {
    item["revision"] = item.at("revision").as_int64() + 1;
}

Record& createItem(Library& library, const Record& place, const json::object& body) {
    Record& item = createRecord(library, skillKind(), place, body);
    item["owner"] = library.users.front().at("id");
    item["revision"] = 1;
    return item;
}

Endpoints skillsEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"GET", "/api/skill/roots", listSkillRoots},          {"POST", "/api/skill/create", createSkill},
        {"GET", "/api/skill/item/{id}", readSkill},           {"GET", "/api/skill/item/{id}/children", listBundle},
        {"POST", "/api/skill/item/{id}/rename", renameSkill}, {"POST", "/api/skill/item/{id}/move", moveSkill},
        {"POST", "/api/skill/item/{id}/delete", removeSkill},
    };
    return endpoints;
}

} // namespace sample
