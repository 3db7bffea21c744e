#include "library/NodeFilter.h"

#include <algorithm>

#include <boost/json/array.hpp>

#include "library/Text.h"
#include "library/Tree.h"

namespace sample {

namespace json = boost::json;

namespace {

/// Groups gather what can be read; the folders around it are found by their own kind.
constexpr std::pair<std::string_view, std::string_view> groupMembers[] = {
    {"context", "orvane_context"},    {"transcript", "codex_chat"},   {"transcript", "claude_code_chat"},
    {"transcript", "chatgpt_chat"},   {"profile", "profile_section"}, {"notes", "apple_note"},
    {"notes", "obsidian_note"},       {"obsidian", "obsidian_note"},  {"document", "local_file"},
    {"document", "sharepoint_file"},  {"local_folder", "local_file"}, {"sharepoint", "sharepoint_file"},
    {"memory", "agent_memory"},       {"meeting", "granola_meeting"}, {"meeting", "read_ai_meeting"},
    {"granola", "granola_meeting"},   {"read_ai", "read_ai_meeting"}, {"messaging", "message_thread"},
    {"messaging", "channel_message"}, {"email", "email_thread"},      {"email", "email_message"},
    {"skill", "agent_skill"},
};

std::optional<Instant> requestedInstant(const Request& request, std::string_view key, DayEdge edge) {
    const auto given = request.text(key);
    const auto instant = parseInstant(given.value_or(""), edge);
    if (given && !instant) {
        throw RequestError(400, std::string(key) + " must be a date like 2024-03-07 or an ISO-8601 instant.");
    }
    return instant;
}

std::vector<std::string> ownersInScope(const Library& library, const std::string& scope) {
    const std::string wanted = fold(scope);
    std::vector<std::string> ids;
    for (const json::object& user : library.users) {
        const bool current = library.isCurrentUser(user);
        if (wanted == "all_readable" || (wanted == "team" && !current) ||
            ((wanted == "me" || wanted == "current_user") && current) || wanted == fold(text(user, "id")) ||
            wanted == fold(text(user, "email"))) {
            ids.emplace_back(text(user, "id"));
        }
    }
    if (ids.empty() && wanted != "team") {
        throw RequestError(400, "owner must be all_readable, current_user, me, team, or a user's id or email.");
    }
    return ids;
}

bool isPerson(const json::value& person, const std::string& wanted) {
    return fold(text(person.as_object(), "email")) == wanted ||
           containsFolded(text(person.as_object(), "name"), wanted);
}

/// Whether the person or one of the people under `key` is wanted.
bool isAmong(const json::object& mail, std::string_view key, const std::string& wanted) {
    const json::value* people = mail.if_contains(key);
    if (!people || !people->is_array()) {
        return people && isPerson(*people, wanted);
    }
    return std::ranges::any_of(people->get_array(), [&](const auto& person) { return isPerson(person, wanted); });
}

bool isSuchMail(const Node& node, const NodeFilter& filter) {
    const json::value* message = node.if_contains("mail");
    return message && std::ranges::all_of(filter.mail, [&](const auto& part) {
               const json::object& mail = message->as_object();
               const auto& [key, wanted] = part;
               if (key == "subject") {
                   return containsFolded(text(mail, key), wanted);
               }
               if (key == "recipient") {
                   return isAmong(mail, "to", wanted) || isAmong(mail, "cc", wanted) || isAmong(mail, "bcc", wanted);
               }
               return isAmong(mail, key == "sender" ? "from" : key, wanted);
           });
}

/// A thread is such mail when one of its messages is.
bool holdsSuchMail(const Library& library, const Node& node, const NodeFilter& filter) {
    return isSuchMail(node, filter) || std::ranges::any_of(nodesBelow(library, &node, true), [&](const Node* inner) {
               return isSuchMail(*inner, filter);
           });
}

} // namespace

NodeFilter requestedFilter(const Library& library, const Request& request, std::string_view kindKey,
                           std::string_view ownerFallback) {
    NodeFilter filter{.kind = request.text(kindKey).value_or("all"),
                      .since = requestedInstant(request, "since", DayEdge::first),
                      .until = requestedInstant(request, "until", DayEdge::last),
                      .ownerIds = ownersInScope(library, request.text("owner").value_or(std::string(ownerFallback))),
                      .name = fold(request.text("name").value_or("")),
                      .initiated = request.text("initiated"),
                      .repos = words(request.text("repos").value_or(""), ","),
                      .mail = {}};
    for (const auto* key : {"sender", "recipient", "to", "cc", "bcc", "subject"}) {
        if (const auto wanted = request.text(key)) {
            filter.mail[key] = fold(*wanted);
        }
    }
    return filter;
}

bool isOfKind(const Node& node, std::string_view word) {
    return word == "all" || word == text(node, "kind") ||
           std::ranges::count(groupMembers, std::pair(word, text(node, "kind"))) > 0;
}

bool matches(const Library& library, const Node& node, const NodeFilter& filter) {
    return isOfKind(node, filter.kind) && (!filter.since || lastChange(node) >= *filter.since) &&
           (!filter.until || lastChange(node) <= *filter.until) &&
           std::ranges::count(filter.ownerIds, text(node, "owner")) > 0 &&
           containsFolded(text(node, "name"), filter.name) &&
           (!filter.initiated || text(node, "initiated") == *filter.initiated) &&
           (filter.repos.empty() || std::ranges::count(filter.repos, text(node, "repo")) > 0) &&
           (filter.mail.empty() || holdsSuchMail(library, node, filter));
}

} // namespace sample
