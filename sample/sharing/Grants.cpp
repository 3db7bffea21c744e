// The direct grants of a node, which stand in its "sharedWith": of an audience in a team, of a member of one, or of a
// person outside any.
#include <algorithm>

#include <boost/json.hpp>

#include "Endpoints.h"
#include "library/Collection.h"

namespace sample {

namespace {

json::array& grants(Node& node) {
    json::value& list = node["sharedWith"];
    return list.is_array() ? list.get_array() : list.emplace_array();
}

json::value answered(Node& node) {
    return {{"nodeId", node.at("id")}, {"grants", grants(node)}};
}

std::vector<std::string_view> texts(const Request& request, std::string_view key) {
    std::vector<std::string_view> found;
    for (const json::value& value : request.body.at(key).as_array()) {
        found.push_back(value.as_string());
    }
    return found;
}

/// The name of the team that the request names; empty when it names none.
std::string_view teamName(const Library& library, const Request& request) {
    const std::string_view id = text(request.body, "teamId");
    const json::array& teams = library.account.at("teams").as_array();
    const auto* const team =
        std::ranges::find(teams, id, [](const json::value& each) { return text(each.as_object(), "id"); });
    if (team == teams.end() && !id.empty()) {
        throw RequestError(404, "No team has the id " + std::string(id) + ".");
    }
    return team == teams.end() ? std::string_view() : text(team->as_object(), "name");
}

const json::object& person(const Library& library, std::string_view key, std::string_view value) {
    const auto found = std::ranges::find(library.users, value, [&](const auto& user) { return text(user, key); });
    if (found == library.users.end()) {
        throw RequestError(404, "No user has the " + std::string(key) + " " + std::string(value) + ".");
    }
    return *found;
}

/// Whose grants a request asks for: each of the users, in the team where it names one, or else the audience.
std::vector<json::object> audiences(const Library& library, const Request& request) {
    const std::string_view team = teamName(library, request);
    const std::string_view audience = text(request.body, "audience");
    if (audience != "user") {
        return {{{"audience", audience == "everyone" ? "team" : audience}, {"teamName", team}}};
    }
    std::vector<const json::object*> people;
    for (const std::string_view id : texts(request, "userIds")) {
        people.push_back(&person(library, "id", id));
    }
    if (const std::string_view email = text(request.body, "audienceEmail"); !email.empty()) {
        people.push_back(&person(library, "email", email));
    }
    std::vector<json::object> found;
    for (const json::object* user : people) {
        json::object& grant = found.emplace_back();
        grant = {{"audience", "user"}, {"displayName", user->at("name")}, {"email", user->at("email")}};
        if (!team.empty()) {
            grant["memberOf"] = team;
        }
    }
    return found;
}

bool isOfTeam(const json::object& grant, std::string_view team) {
    return !team.empty() && (text(grant, "teamName") == team || text(grant, "memberOf") == team);
}

bool isOfSameAudience(const json::object& grant, const json::object& other) {
    return std::ranges::all_of(std::to_array({"audience", "teamName", "memberOf", "email"}),
                               [&](const char* key) { return text(grant, key) == text(other, key); });
}

/// What the node allows: a part of it only where sessions lie in repositories and folders, an editor where the library
/// itself has the text.
void check(const Node& node, const Request& request) {
    const std::string_view kind = text(node, "kind");
    if (text(request.body, "scope") != "all" && kind != "integration_root") {
        throw RequestError(400, "Only an integration account can be shared in part.");
    }
    if (text(request.body, "accessMode") == "editor" && !kind.starts_with("orvane_")) {
        throw RequestError(400, "Only contexts and folders of the library can have editors.");
    }
}

json::value readGrants(Library& library, const Request& request) {
    return answered(askedOwnNode(library, request));
}

json::value addGrants(Library& library, const Request& request) {
    Node& node = askedOwnNode(library, request);
    check(node, request);
    for (json::object& grant : audiences(library, request)) {
        for (const char* key : {"scope", "repoKeys", "folderKeys"}) {
            grant[key] = request.body.at(key);
        }
        const std::string_view access = text(request.body, "accessMode");
        grant["accessMode"] = access.empty() ? "viewer" : access;
        json::array& all = grants(node);
        auto* const known = std::ranges::find_if(
            all, [&](const json::value& each) { return isOfSameAudience(each.as_object(), grant); });
        if (known == all.end()) {
            all.push_back(grant);
        } else {
            *known = grant;
        }
    }
    return answered(node);
}

json::value removeGrants(Library& library, const Request& request) {
    Node& node = askedOwnNode(library, request);
    const std::string_view team = teamName(library, request);
    const bool withMembers = !request.body.at("teamACLOnly").as_bool();
    std::vector<std::string_view> emails;
    for (const std::string_view id : texts(request, "userIds")) {
        emails.push_back(text(person(library, "id", id), "email"));
    }
    const auto isMeant = [&](const json::value& each) {
        const json::object& grant = each.as_object();
        const bool isPerson = text(grant, "audience") == "user";
        if (emails.empty()) {
            return isOfTeam(grant, team) && (withMembers || !isPerson);
        }
        return isPerson && std::ranges::count(emails, text(grant, "email")) > 0 &&
               (team.empty() || isOfTeam(grant, team));
    };
    json::array& all = grants(node);
    const auto kept = std::remove_if(all.begin(), all.end(), isMeant);
    if (kept == all.end()) {
        throw RequestError(404, "The node has no such direct grant.");
    }
    all.erase(kept, all.end());
    return answered(node);
}

} // namespace

Endpoints grantsEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"GET", "/api/sharing/{id}", readGrants},
        {"POST", "/api/sharing/{id}", addGrants},
        {"DELETE", "/api/sharing/{id}", removeGrants},
    };
    return endpoints;
}

} // namespace sample
