#include "shell/Vocabulary.h"

#include <algorithm>

#include "core/DisplayDates.h"
#include "platform/Files.h"
#include "platform/Text.h"

namespace orvane {

std::optional<SearchTypeGroup> SearchTypeGroup::fromArgument(std::string_view text) {
    return text.empty() ? std::nullopt : std::optional(SearchTypeGroup{std::string(text)});
}

std::vector<std::string_view> SearchTypeGroup::allValueStrings() {
    return {"all",       "context", "document", "email",   "local_folder", "meeting", "memory",
            "messaging", "notes",   "obsidian", "profile", "sharepoint",   "skill",   "transcript"};
}

std::optional<ListTypeGroup> ListTypeGroup::fromArgument(std::string_view text) {
    return text.empty() ? std::nullopt : std::optional(ListTypeGroup{std::string(text)});
}

std::vector<std::string_view> ListTypeGroup::allValueStrings() {
    std::vector<std::string_view> words = SearchTypeGroup::allValueStrings();
    std::erase(words, "skill");
    return words;
}

QueryItems emailFilterItems(const EmailListingFilterOptions& options) {
    return QueryItems()
        .addIfGiven("sender", options.sender)
        .addIfGiven("recipient", options.recipient)
        .addIfGiven("to", options.to)
        .addIfGiven("cc", options.cc)
        .addIfGiven("bcc", options.bcc)
        .addIfGiven("subject", options.subject);
}

void validateLimit(Integer limit) {
    if (limit < 1 || limit > 500) {
        throw ValidationError{"limit must be between 1 and 500."};
    }
}

void validateOffset(Integer offset) {
    if (offset < 0) {
        throw ValidationError{"offset must be >= 0."};
    }
}

void validatePage(Integer limit, Integer offset) {
    validateLimit(limit);
    validateOffset(offset);
}

std::string normalizeRepoArgument(std::string_view value) {
    const std::string_view text = platform::trimmed(value);
    if (text.starts_with('~')) {
        return platform::expandTilde(text);
    }
    if (text.starts_with('/')) {
        return platform::standardizedPath(text);
    }
    if (text == "." || text == ".." || text.starts_with("./") || text.starts_with("../")) {
        return platform::standardizedPath(platform::currentDirectory() + "/" + std::string(text));
    }
    return std::string(text);
}

std::string sharedWithLabel(const std::vector<platform::JsonObject>& grants) {
    constexpr std::size_t lengthLimit = 20;
    struct Share {
        std::string label;
        std::size_t weight;
    };
    std::vector<Share> shares;
    std::size_t userCount = 0;
    std::string lastUser;
    for (const platform::JsonObject& grant : grants) {
        const auto audience = grant.text("audience");
        if (audience == "user") {
            ++userCount;
            const auto name = grant.text("displayName");
            lastUser = name ? *name : grant.text("email").value_or("someone");
        } else {
            std::string team(grant.text("teamName").value_or("team"));
            shares.push_back({audience == "admins" ? team + " admins" : team, 1});
        }
    }
    if (userCount > 0) {
        shares.push_back({userCount == 1 ? lastUser : std::to_string(userCount) + " people", userCount});
    }
    std::string text;
    std::size_t shown = 0;
    for (const Share& share : shares) {
        const std::string longer = shown == 0 ? share.label : text + ", " + share.label;
        if (shown > 0 && platform::characterCount(longer) > lengthLimit) {
            break;
        }
        text = longer;
        shown += share.weight;
    }
    const std::size_t total = grants.size();
    return total > shown ? text + " +" + std::to_string(total - shown) : text;
}

std::string updatedLabel(const platform::JsonObject& node) {
    const auto original = node.text("originalUpdatedAt");
    return formatDisplayDate(original ? *original : textOrEmpty(node, "updatedAt"));
}

std::string_view textOrEmpty(const platform::JsonObject& record, std::string_view key) {
    return record.text(key).value_or("");
}

} // namespace orvane
