// `ls`: the children of a node, or the source roots.
#pragma once

#include "shell/Vocabulary.h"

namespace orvane {

struct Ls final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::optional<std::string>> parent{
        *this, "parent", "Parent node or integration-root UUID to list under. Omit to list roots."};
    Option<std::optional<ListTypeGroup>> type{
        *this, "type",
        "Filter by type/kind: context, transcript, profile, email, messaging, notes, obsidian, document, local_folder, "
        "sharepoint, memory, meeting, or a raw NodeKind."};
    Option<std::optional<std::string>> since{
        *this, "since", "Only include nodes updated at or after this date (ISO-8601 or yyyy-MM-dd)."};
    Option<std::optional<std::string>> until{
        *this, "until", "Only include nodes updated at or before this date (ISO-8601 or yyyy-MM-dd)."};
    Option<Integer> limit{*this, "limit", 100, "Maximum number of nodes to return (default: 100, max: 500)."};
    Option<Integer> offset{*this, "offset", 0, "Starting index for pagination (default: 0)."};
    Option<std::optional<std::string>> owner{
        *this, "owner",
        "Orvane source owner scope: everything you can read (default all_readable). Narrow with current_user/me, team "
        "(teammates only), or a teammate user ID or email."};
    Option<std::optional<std::string>> name{*this, "name",
                                            "Case-insensitive node-name substring, applied before pagination."};
    Option<std::optional<InitiatedArgument>> initiated{
        *this, "initiated",
        "Filter sessions by who or what initiated them: human, agent, or automation. Combine with --type transcript "
        "(the default when set) or a conversation --kind such as codex_chat; message kinds are reached through their "
        "session kind."};
    Flag<bool> sortByTime{*this,
                          "sortByTime",
                          "Sort by update time, newest first, instead of the default name order (only the Contexts "
                          "root sorts by name; other listings are already newest-first).",
                          {.names = {longName(), customShort("t")}}};
    OptionGroup<EmailListingFilterOptions> email{*this, "email"};
    Flag<bool> json{*this, "json", "Output the raw JSON response instead of the aligned table."};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
