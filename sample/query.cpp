#include "query.h"

#include <algorithm>
#include <functional>

#include <boost/json/array.hpp>

#include "text.h"

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

bool isPerson(const json::value& person, const std::string& wanted) {
    return person.is_object() && (fold(text(person.get_object(), "email")) == wanted ||
                                  containsFolded(text(person.get_object(), "name"), wanted));
}

/// Whether the person or one of the people under `key` is wanted.
bool isAmong(const json::object& mail, std::string_view key, const std::string& wanted) {
    const json::value* people = mail.if_contains(key);
    if (!people || !people->is_array()) {
        return people && isPerson(*people, wanted);
    }
    return std::ranges::any_of(people->get_array(), [&](const auto& person) { return isPerson(person, wanted); });
}

bool isSuchMail(const json::object& mail, const MailFilter& filter) {
    return std::ranges::all_of(filter, [&](const auto& part) {
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
bool holdsSuchMail(const Library& library, const Node& node, const MailFilter& filter) {
    const auto isSuch = [&](const Node* inner) {
        const json::value* mail = inner->if_contains("mail");
        return mail && mail->is_object() && isSuchMail(mail->get_object(), filter);
    };
    return isSuch(&node) || std::ranges::any_of(nodesBelow(library, &node, true), isSuch);
}

} // namespace

std::optional<std::vector<std::string>> ownersInScope(const Library& library, std::string_view scope) {
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
    return ids.empty() && wanted != "team" ? std::nullopt : std::optional(ids);
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
           (filter.mail.empty() || holdsSuchMail(library, node, filter.mail));
}

NodeList ancestors(const Library& library, const Node& node) {
    NodeList found;
    const Node* above = &node;
    while ((above = library.findNode(text(*above, "parentId")))) {
        found.push_back(above);
    }
    std::ranges::reverse(found);
    return found;
}

NodeList nodesBelow(const Library& library, const Node* parent, bool recursive) {
    NodeList found;
    for (const Node& node : library.nodes) {
        const NodeList above = ancestors(library, node);
        const Node* direct = above.empty() ? nullptr : above.back();
        if (direct == parent || (recursive && (!parent || std::ranges::count(above, parent) > 0))) {
            found.push_back(&node);
        }
    }
    return found;
}

void sortByName(NodeList& nodes) {
    std::ranges::stable_sort(nodes, {}, [](const Node* node) { return fold(text(*node, "name")); });
}

void sortNewestFirst(NodeList& nodes) {
    std::ranges::stable_sort(nodes, std::greater(), [](const Node* node) { return lastChange(*node); });
}

NodeList documents(const Library& library, const Node* scope) {
    NodeList nodes = nodesBelow(library, scope, true);
    if (scope) {
        nodes.push_back(scope);
    }
    std::erase_if(nodes, [](const Node* node) { return isContainer(*node); });
    sortNewestFirst(nodes);
    return nodes;
}

bool mentions(const Node& node, const std::vector<std::string>& terms) {
    return std::ranges::all_of(terms, [&](const std::string& term) {
        return containsFolded(text(node, "name"), term) || containsFolded(text(node, "text"), term);
    });
}

Excerpt excerpt(const Node& node, const std::vector<std::string>& terms) {
    constexpr std::size_t mostLines = 3;
    const auto lines = splitLines(text(node, "text"));
    std::vector<std::string_view> shown;
    std::size_t first = 0;
    for (std::size_t at = 0; at < lines.size() && shown.size() < mostLines; ++at) {
        if (std::ranges::any_of(terms, [&](const auto& term) { return containsFolded(lines[at], term); })) {
            first = shown.empty() ? at : first;
            shown.push_back(lines[at]);
        }
    }
    if (shown.empty() && !lines.empty()) {
        shown.push_back(lines.front());
    }
    return {.line = first, .text = joinLines(shown)};
}

} // namespace sample
