#include "core/inputs/TypeGroups.h"

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

} // namespace orvane
