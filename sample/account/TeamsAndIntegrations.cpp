// Teams, and the integrations that the user or a teammate has.
#include <algorithm>

#include <boost/json.hpp>

#include "Endpoints.h"
#include "library/NodeRecord.h"

namespace sample {

namespace {

bool isSharedWithTeam(const Node& node, std::string_view teamName) {
    const json::value* audiences = node.if_contains("sharedWith");
    return audiences && std::ranges::any_of(audiences->as_array(), [&](const json::value& audience) {
               return text(audience.as_object(), "teamName") == teamName;
           });
}

const json::array& teams(const Library& library) {
    return library.account.at("teams").as_array();
}

/// The ids of the teams that the node is shared with.
json::array teamIds(const Library& library, const Node& node) {
    json::array ids;
    for (const json::value& team : teams(library)) {
        if (isSharedWithTeam(node, text(team.as_object(), "name"))) {
            ids.push_back(team.at("id"));
        }
    }
    return ids;
}

json::value listTeams(Library& library, const Request&) {
    json::array list;
    for (const json::value& entry : teams(library)) {
        json::object team = entry.as_object();
        json::array members;
        for (const json::object& user : library.users) {
            members.push_back(user);
        }
        json::array shared;
        for (const Node& node : library.nodes) {
            if (isSharedWithTeam(node, text(team, "name"))) {
                shared.push_back({{"id", node.at("id")}, {"name", node.at("name")}, {"kind", node.at("kind")}});
            }
        }
        team["members"] = std::move(members);
        team["sharedResources"] = std::move(shared);
        list.push_back(std::move(team));
    }
    return {{"teams", list}};
}

json::value listIntegrations(Library& library, const Request& request) {
    const auto teamId = request.text("teamId");
    const auto isTeam = [&](const json::value& team) { return text(team.as_object(), "id") == *teamId; };
    if (teamId && std::ranges::none_of(teams(library), isTeam)) {
        throw RequestError(404, "No team has the id " + *teamId + ".");
    }
    json::array list;
    for (const Node& node : library.nodes) {
        const std::string_view platform = text(node, "platform");
        const json::object record = nodeRecord(library, node);
        const bool own = record.at("sourceOwner").at("isCurrentUser").as_bool();
        const std::string_view status = own ? "active" : "team_remote";
        const json::array shared = teamIds(library, node);
        if (platform.empty() || platform != request.text("platform").value_or(std::string(platform)) ||
            status != request.text("status").value_or(std::string(status)) ||
            (teamId && std::ranges::count(shared, json::value(*teamId)) == 0)) {
            continue;
        }
        list.push_back({{"id", node.at("id")},
                        {"name", node.at("name")},
                        {"platform", platform},
                        {"status", status},
                        {"owner", record.at("sourceOwner")},
                        {"teamIds", shared}});
    }
    return {{"integrations", list}};
}

} // namespace

Endpoints teamsAndIntegrationsEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"GET", "/api/teams", listTeams},
        {"GET", "/api/integrations", listIntegrations},
    };
    return endpoints;
}

} // namespace sample
