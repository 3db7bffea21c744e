// What the commands that show the library as a file system share: the values of their options and the record in which
// the service describes a node.
//
// A node record is looked up one key at a time, and a key that is absent or of another type counts as missing.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/CommandModel.h"
#include "core/Query.h"
#include "platform/Json.h"

namespace orvane {

/// What a search is narrowed to: a group's word or a raw kind, sent as typed. Any text but an empty one.
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

/// Who or what started a session.
enum class InitiatedArgument { human, agent, automation };

/// Filters of a listing inside a mailbox or an e-mail thread; the service sees to it that the parent is one.
struct EmailListingFilterOptions final : ParsableArguments {
    Option<std::optional<std::string>> sender{*this, "sender",
                                              "Email sender: display-name substring or exact email address. Needs a "
                                              "mailbox or email thread as the parent."};
    Option<std::optional<std::string>> recipient{*this, "recipient",
                                                 "Any To/Cc/Bcc display-name substring or exact address."};
    Option<std::optional<std::string>> to{*this, "to", "To display-name substring or exact address."};
    Option<std::optional<std::string>> cc{*this, "cc", "Cc display-name substring or exact address."};
    Option<std::optional<std::string>> bcc{*this, "bcc", "Available Bcc display-name substring or exact address."};
    Option<std::optional<std::string>> subject{*this, "subject",
                                               "Case-insensitive substring of the matching message subject."};
};

/// The query of the filters that are given.
QueryItems emailFilterItems(const EmailListingFilterOptions& options);

/// How many nodes or results are asked for. Throws ValidationError unless it is 1 to 500.
void validateLimit(Integer limit);

/// Where a page starts. Throws ValidationError when it is negative.
void validateOffset(Integer offset);

/// The page of a listing. Throws ValidationError for its limit and for a negative offset.
void validatePage(Integer limit, Integer offset);

/// What "." in a `--repo` value, a path, or a canonical repository key stands for in a request: a full path, or the
/// key as it is.
std::string normalizeRepoArgument(std::string_view value);

/// Whom a node is shared with, from its "sharedWith", on about 20 characters: what does not fit is only counted.
std::string sharedWithLabel(const std::vector<platform::JsonObject>& grants);

/// When a node was last updated, as listings show it; empty when its record doesn't tell.
std::string updatedLabel(const platform::JsonObject& node);

/// The text of a key; empty when it is missing.
std::string_view textOrEmpty(const platform::JsonObject& record, std::string_view key);

/// Kinds whose nodes are directories when their record doesn't say so itself.
inline constexpr std::array<std::string_view, 11> containerKinds{
    "chatgpt_project", "integration_root",  "obsidian_vault", "obsidian_folder", "apple_notes_folder", "local_folder",
    "sharepoint_site", "sharepoint_folder", "granola_folder", "read_ai_folder",  "orvane_folder"};

} // namespace orvane

template <>
struct argumentparser::ClosedSet<orvane::InitiatedArgument> {
    static constexpr std::pair<orvane::InitiatedArgument, std::string_view> members[]{
        {orvane::InitiatedArgument::human, "human"},
        {orvane::InitiatedArgument::agent, "agent"},
        {orvane::InitiatedArgument::automation, "automation"},
    };
};
