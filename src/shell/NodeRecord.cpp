#include "shell/NodeRecord.h"

#include <algorithm>
#include <array>

#include "core/output/DisplayDates.h"
#include "platform/text/Text.h"

namespace orvane {

namespace {

/// Kinds whose nodes are directories when their record doesn't say so itself.
constexpr std::array<std::string_view, 11> containerKinds{
    "chatgpt_project", "integration_root",  "obsidian_vault", "obsidian_folder", "apple_notes_folder", "local_folder",
    "sharepoint_site", "sharepoint_folder", "granola_folder", "read_ai_folder",  "orvane_folder"};

} // namespace

bool isDirectory(const platform::JsonObject& node) {
    if (const auto isContainer = node.boolean("isContainer")) {
        return *isContainer;
    }
    const auto kind = node.text("kind");
    return kind && std::find(containerKinds.begin(), containerKinds.end(), *kind) != containerKinds.end();
}

std::string_view ownerLabel(const std::optional<platform::JsonObject>& owner) {
    if (!owner || owner->boolean("isCurrentUser") == true) {
        return "me";
    }
    const auto email = owner->text("email");
    return email ? *email : owner->text("displayName").value_or("?");
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
            const std::string team(grant.text("teamName").value_or("team"));
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

std::string updatedLabel(const platform::JsonObject& node, platform::LocalClock& clock) {
    const auto original = node.text("originalUpdatedAt");
    return formatDisplayDate(original ? *original : textOrEmpty(node, "updatedAt"), clock);
}

std::string_view textOrEmpty(const platform::JsonObject& record, std::string_view key) {
    return record.text(key).value_or("");
}

} // namespace orvane
