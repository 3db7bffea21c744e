#include "endpoints.h"

#include "query.h"
#include "text.h"

#include <algorithm>

#include <boost/json.hpp>

namespace sample {

namespace json = boost::json;

namespace {

struct Endpoint {
    std::string_view method;
    std::string_view pattern; ///< A word in braces stands for any one word, which the request then carries.
    Response (*handler)(Library&, const Request&);
};

Response success(const json::object& body) {
    return {.status = 200, .body = json::serialize(body), .allow = ""};
}

/// What stands under `key` of the account, null when nothing does.
json::value accountValue(const Library& library, std::string_view key) {
    const json::value* value = library.account.if_contains(key);
    return value ? *value : json::value();
}

json::object nodeRecord(const Library& library, const Node& node) {
    json::object record;
    for (const auto* key :
         {"id", "name", "kind", "isContainer", "sharedWith", "initiated", "executionMode", "threadId"})
        if (const json::value* value = node.if_contains(key))
            record[key] = *value;
    record["isContainer"] = isContainer(node);
    if (const json::object* owner = library.findUser(text(node, "owner")))
        record["sourceOwner"] = {{"isCurrentUser", library.isCurrentUser(*owner)},
                                 {"email", owner->at("email")},
                                 {"displayName", owner->at("name")}};
    for (const auto* key : {"updatedAt", "originalUpdatedAt", "originalCreatedAt"})
        if (const auto instant = parseInstant(text(node, key)))
            record[key] = displayTimestamp(*instant);
    return record;
}

const Node* requestedParent(const Library& library, const Request& request) {
    const auto id = request.text("parentId");
    const Node* parent = id ? library.findNode(*id) : nullptr;
    if (id && !parent)
        throw RequestError(404, "No node has the id " + *id + ".");
    return parent;
}

std::optional<Instant> requestedInstant(const Request& request, std::string_view key, DayEdge edge) {
    const auto given = request.text(key);
    const auto instant = parseInstant(given.value_or(""), edge);
    if (given && !instant)
        throw RequestError(400, std::string(key) + " must be a date like 2024-03-07 or an ISO-8601 instant.");
    return instant;
}

std::vector<std::string> requestedOwners(const Library& library, const Request& request, std::string_view fallback) {
    const auto owners = ownersInScope(library, request.text("owner").value_or(std::string(fallback)));
    if (!owners)
        throw RequestError(400, "owner must be all_readable, current_user, me, team, or a user's id or email.");
    return *owners;
}

MailFilter requestedMail(const Request& request, const Node* parent) {
    MailFilter filter;
    for (const std::string_view key : {"sender", "recipient", "to", "cc", "bcc", "subject"})
        if (const auto wanted = request.text(key))
            filter.emplace_back(key, fold(*wanted));
    const std::string_view kind = parent ? text(*parent, "kind") : "";
    if (!filter.empty() && kind != "email_mailbox" && kind != "email_thread")
        throw RequestError(400, "E-mail filters need a mailbox or an e-mail thread as the parent.");
    return filter;
}

NodeFilter requestedFilter(const Library& library, const Request& request, const Node* parent) {
    return {.kind = request.text("kind").value_or("all"),
            .since = requestedInstant(request, "since", DayEdge::first),
            .until = requestedInstant(request, "until", DayEdge::last),
            .ownerIds = requestedOwners(library, request, "all_readable"),
            .name = fold(request.text("name").value_or("")),
            .initiated = request.text("initiated"),
            .mail = requestedMail(request, parent)};
}

void sortAsRequested(NodeList& nodes, const Library& library, const Request& request, const Node* parent) {
    const auto sort = request.text("sort");
    if (sort && *sort != "updated")
        throw RequestError(400, "sort must be updated.");
    const bool named = parent && text(*parent, "id") == text(library.account, "contextsRootId");
    if (named && !sort && !request.flag("recursive"))
        sortByName(nodes);
    else
        sortNewestFirst(nodes);
}

/// The nodes that are no folders, in the whole library or under one node, the newest first.
NodeList documents(const Library& library, const Node* scope) {
    NodeList nodes = nodesBelow(library, scope, true);
    if (scope)
        nodes.push_back(scope);
    std::erase_if(nodes, [](const Node* node) { return isContainer(*node); });
    sortNewestFirst(nodes);
    return nodes;
}

Response status(Library& library, const Request&) {
    const json::object& user = library.users.front();
    json::object body{{"status", "ok"}, {"cli_access", true}, {"authenticated", true}};
    body["user"] = {{"name", user.at("name")}, {"email", user.at("email")}};
    for (const auto* key : {"version", "build_number", "deployment"})
        if (const json::value* value = library.account.if_contains(key))
            body[key] = *value;
    Instant newest;
    for (const Node& node : library.nodes)
        newest = std::max(newest, parseInstant(text(node, "updatedAt")).value_or(Instant()));
    if (!library.nodes.empty())
        body["lastIngestionAt"] = displayTimestamp(newest);
    if (const auto synced = parseInstant(text(library.account, "lastCloudSyncAt")))
        body["lastCloudSyncAt"] = displayTimestamp(*synced);
    return success(body);
}

Response whoami(Library& library, const Request&) {
    json::object body = library.users.front();
    body["authenticated"] = true;
    body["teams"] = accountValue(library, "teams");
    body["cloudSyncEnabled"] = accountValue(library, "cloudSyncEnabled");
    return success(body);
}

Response checkIn(Library& library, const Request& request) {
    const std::size_t limit = request.number("recentLimit", 10, 1, 25);
    json::array recent;
    for (const Node* node : documents(library, nullptr)) {
        if (recent.size() == limit)
            break;
        recent.push_back({{"id", node->at("id")},
                          {"name", node->at("name")},
                          {"kind", node->at("kind")},
                          {"displayTimestamp", displayTimestamp(lastChange(*node))},
                          {"label", "in " + place(library, *node)}});
    }
    const json::value profile = accountValue(library, "profile");
    return success({{"profile", {{"available", profile.is_array()}, {"sections", profile}}},
                    {"recentActivity", {{"documents", recent}}}});
}

Response search(Library& library, const Request& request) {
    const std::string query = request.text("q").value_or("");
    const std::vector<std::string> terms = request.flag("literal") ? std::vector{fold(query)} : words(fold(query));
    if (words(query).empty())
        throw RequestError(400, "q must hold something to search for.");
    const std::size_t limit = request.number("limit", 10, 1, 500);
    NodeFilter filter;
    filter.kind = request.text("type").value_or("all");
    filter.ownerIds = requestedOwners(library, request, "current_user");
    json::array results;
    for (const Node* node : documents(library, requestedParent(library, request))) {
        if (results.size() == limit)
            break;
        if (!matches(library, *node, filter) || !mentions(*node, terms))
            continue;
        json::object document = nodeRecord(library, *node);
        // Unlike a listing, a search gives the instant itself.
        document["originalUpdatedAt"] =
            text(*node, node->contains("originalUpdatedAt") ? "originalUpdatedAt" : "updatedAt");
        results.push_back({{"nodeId", node->at("id")},
                           {"title", node->at("name")},
                           {"body", excerpt(*node, terms)},
                           {"document", std::move(document)}});
    }
    return success({{"query", query}, {"results", std::move(results)}});
}

Response listNodes(Library& library, const Request& request) {
    const Node* parent = requestedParent(library, request);
    const std::size_t limit = request.number("limit", 100, 1, 500);
    const std::size_t offset = request.number("offset", 0, 0, 1'000'000'000);
    const NodeFilter filter = requestedFilter(library, request, parent);
    NodeList nodes = nodesBelow(library, parent, request.flag("recursive"));
    std::erase_if(nodes, [&](const Node* node) { return !matches(library, *node, filter); });
    sortAsRequested(nodes, library, request, parent);

    json::array page;
    for (std::size_t at = offset; at < std::min(offset + limit, nodes.size()); ++at)
        page.push_back(nodeRecord(library, *nodes[at]));
    const std::size_t next = offset + page.size();
    json::object body{
        {"returned", page.size()}, {"offset", offset}, {"total", nodes.size()}, {"hasMore", next < nodes.size()}};
    if (next < nodes.size())
        body["nextOffset"] = next;
    body["nodes"] = std::move(page);
    return success(body);
}

constexpr Endpoint endpoints[] = {
    {"GET", "/api/status", status},          {"GET", "/api/whoami", whoami},   {"GET", "/api/check-in", checkIn},
    {"GET", "/api/contexts/search", search}, {"GET", "/api/nodes", listNodes},
};

/// The words of the path that stand for a braced word of the pattern, or nothing when the path is not of the pattern.
std::optional<std::vector<std::string>> captures(const std::vector<std::string>& path, std::string_view pattern) {
    const auto expected = splitPath(pattern);
    if (expected.size() != path.size())
        return std::nullopt;
    std::vector<std::string> captured;
    for (std::size_t at = 0; at < path.size(); ++at) {
        if (expected[at].starts_with('{') && !path[at].empty())
            captured.push_back(path[at]);
        else if (expected[at] != path[at])
            return std::nullopt;
    }
    return captured;
}

Response dispatch(Library& library, Request request) {
    std::string allowed;
    for (const Endpoint& endpoint : endpoints) {
        auto captured = captures(request.path, endpoint.pattern);
        if (!captured)
            continue;
        if (endpoint.method == request.method) {
            request.captures = std::move(*captured);
            return endpoint.handler(library, request);
        }
        allowed += (allowed.empty() ? "" : ", ") + std::string(endpoint.method);
    }
    std::string asked = request.method + " ";
    for (const std::string& word : request.path)
        asked += "/" + word;
    Response response = refusal(allowed.empty() ? 404 : 405, "The sample library does not know " + asked + ".");
    response.allow = allowed;
    return response;
}

} // namespace

Response refusal(unsigned status, std::string_view message) {
    const std::string_view error = status == 404   ? "not_found"
                                   : status == 405 ? "method_not_allowed"
                                   : status < 500  ? "bad_request"
                                                   : "internal_error";
    return {
        .status = status, .body = json::serialize(json::object{{"error", error}, {"message", message}}), .allow = ""};
}

Response answer(Library& library, std::string_view method, std::string_view target, std::string body) {
    try {
        return dispatch(library, parseRequest(method, target, std::move(body)));
    } catch (const RequestError& error) {
        return refusal(error.status, error.what());
    } catch (const std::exception& error) {
        return refusal(500, error.what());
    }
}

} // namespace sample
