#include <algorithm>

#include <boost/json.hpp>

#include "Endpoints.h"
#include "library/Tree.h"

namespace sample {

namespace {

/// What stands under `key` of the account, null when nothing does.
json::value accountValue(const Library& library, std::string_view key) {
    const json::value* value = library.account.if_contains(key);
    return value ? *value : json::value();
}

/// The names of the nodes above this one, outermost first.
std::string place(const Library& library, const Node& node) {
    std::string names;
    for (const Node* above : ancestors(library, node)) {
        names += (names.empty() ? "" : " / ") + std::string(text(*above, "name"));
    }
    return names;
}

json::value status(Library& library, const Request&) {
    const json::object& user = library.users.front();
    json::object body{{"status", "ok"}, {"cli_access", true}, {"authenticated", true}};
    body["user"] = {{"name", user.at("name")}, {"email", user.at("email")}};
    for (const auto* key : {"version", "build_number", "deployment"}) {
        if (const json::value* value = library.account.if_contains(key)) {
            body[key] = *value;
        }
    }
    Instant newest;
    for (const Node& node : library.nodes) {
        newest = std::max(newest, instantUnder(node, "updatedAt").value_or(newest));
    }
    body["lastIngestionAt"] = displayTimestamp(newest);
    if (const auto synced = instantUnder(library.account, "lastCloudSyncAt")) {
        body["lastCloudSyncAt"] = displayTimestamp(*synced);
    }
    return body;
}

json::value whoami(Library& library, const Request&) {
    json::object body = library.users.front();
    body["authenticated"] = true;
    body["teams"] = accountValue(library, "teams");
    body["cloudSyncEnabled"] = accountValue(library, "cloudSyncEnabled");
    return body;
}

json::value checkIn(Library& library, const Request& request) {
    const std::size_t limit = request.number("recentLimit", 10);
    json::array recent;
    for (const Node* node : documents(library, nullptr)) {
        if (recent.size() == limit) {
            break;
        }
        recent.push_back({{"id", node->at("id")},
                          {"name", node->at("name")},
                          {"kind", node->at("kind")},
                          {"displayTimestamp", displayTimestamp(lastChange(*node))},
                          {"label", "in " + place(library, *node)}});
    }
    const json::value profile = accountValue(library, "profile");
    return {{"profile", {{"available", profile.is_array()}, {"sections", profile}}},
            {"recentActivity", {{"documents", recent}}}};
}

json::value takeFeedback(Library&, const Request& request) {
    if (text(request.body, "message").empty()) {
        throw RequestError(400, "The message must not be empty.");
    }
    return {{"category", text(request.body, "category")}};
}

} // namespace

Endpoints accountEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"GET", "/api/status", status},
        {"GET", "/api/whoami", whoami},
        {"GET", "/api/check-in", checkIn},
        {"POST", "/api/feedback", takeFeedback},
    };
    return endpoints;
}

} // namespace sample
