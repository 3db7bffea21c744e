// What searches and listings are narrowed to.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// A group's word or a raw kind, sent as typed. Any text but an empty one.
struct SearchTypeGroup {
    std::string rawValue;

    static std::optional<SearchTypeGroup> fromArgument(std::string_view text);
    const std::string& text() const { return rawValue; }
    /// The groups' words.
    static std::vector<std::string_view> allValueStrings();
};

/// The same for a listing, which knows no group for skills.
struct ListTypeGroup {
    std::string rawValue;

    static std::optional<ListTypeGroup> fromArgument(std::string_view text);
    const std::string& text() const { return rawValue; }
    static std::vector<std::string_view> allValueStrings();
};

} // namespace orvane
