// `grep`: the search in the content of nodes.
#pragma once

#include "shell/Vocabulary.h"

namespace orvane {

struct Grep final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> pattern{*this, "pattern", "The search query / pattern."};
    Argument<std::optional<std::string>> scope{*this, "scope",
                                               "Optional parent node or integration-root UUID to search within."};
    Option<std::optional<SearchTypeGroup>> type{
        *this, "type",
        "Filter by type/kind: context, transcript, profile, email, messaging, notes, obsidian, document, local_folder, "
        "sharepoint, memory, meeting, or a raw NodeKind."};
    Option<std::optional<std::string>> since{
        *this, "since", "Only search nodes updated at or after this date (ISO-8601 or yyyy-MM-dd)."};
    Option<std::optional<std::string>> until{
        *this, "until", "Only search nodes updated at or before this date (ISO-8601 or yyyy-MM-dd)."};
    Option<Integer> limit{*this, "limit", 10, "Maximum number of results to return (default: 10, max: 500)."};
    Option<std::optional<std::string>> sender{*this, "sender", "Sender display-name substring or exact email address."};
    Option<std::optional<std::string>> recipient{*this, "recipient",
                                                 "Any To/Cc/Bcc display-name substring or exact address."};
    Option<std::optional<std::string>> to{*this, "to", "To display-name substring or exact address."};
    Option<std::optional<std::string>> cc{*this, "cc", "Cc display-name substring or exact address."};
    Option<std::optional<std::string>> bcc{*this, "bcc", "Available Bcc display-name substring or exact address."};
    Option<std::optional<std::string>> subject{*this, "subject",
                                               "Case-insensitive substring of the matching message subject."};
    Option<std::optional<std::string>> pageToken{*this, "pageToken",
                                                 "Continuation from a previous grep; keep other parameters unchanged."};
    Flag<bool> literal{*this,
                       "literal",
                       "Lexical cloud search or contiguous substring matching locally.",
                       {.names = {longName(), customShort("F")}}};
    Option<std::optional<std::string>> owner{
        *this, "owner",
        "Orvane source owner scope: everything you can read (default all_readable). Narrow with current_user/me, team "
        "(teammates only), or a teammate user ID or email."};
    Option<std::vector<std::string>> repo{
        *this,
        "repo",
        {},
        "Narrow to specific git repos (coding-session content only). Pass a repo path (\".\" for the current repo) or "
        "a canonical repoKey like github.com/acme/widgets. Repeatable, or comma-separated."};
    Option<std::optional<InitiatedArgument>> initiated{
        *this, "initiated",
        "Filter sessions by who or what initiated them: human, agent, or automation. Combine with --type transcript "
        "(the default when set) or a conversation --kind such as codex_chat; message kinds are reached through their "
        "session kind."};
    Flag<bool> json{*this, "json", "Output the raw JSON response instead of the aligned table."};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
