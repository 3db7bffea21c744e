// `node`: the graph items that everything in the library is made of. All checks are made before anything runs.
#pragma once

#include "library/Paging.h"

namespace orvane {

struct Node final : ParsableCommand {
    static CommandConfiguration configuration();
};

struct NodeList final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::optional<std::string>> parent{*this, "parent", "Parent node or integration-root UUID to list under."};
    Option<std::optional<std::string>> kind{
        *this, "kind",
        "Filter by node kind or group: context, transcript, profile, notes, obsidian, document, local_folder, "
        "sharepoint, memory, meeting, messaging, email, or a NodeKind raw value."};
    Option<std::optional<std::string>> since{
        *this, "since", "Only include nodes updated at or after this date. Accepts ISO-8601 or yyyy-MM-dd."};
    Option<std::optional<std::string>> until{
        *this, "until", "Only include nodes updated at or before this date. Accepts ISO-8601 or yyyy-MM-dd."};
    Option<Integer> limit{*this, "limit", 100, "Maximum number of nodes to return (default: 100, max: 500)."};
    Option<Integer> offset{*this, "offset", 0, "Starting index for pagination (default: 0)."};
    Option<std::optional<std::string>> owner{
        *this, "owner",
        "Orvane source owner scope: everything you can read (default all_readable). Narrow with current_user/me, team "
        "(teammates only), or a teammate user ID or email."};
    Option<std::optional<std::string>> name{*this, "name",
                                            "Case-insensitive node-name substring, applied before pagination."};

    void validate() const override;
    void run() const override;
};

struct NodeGet final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the node."};
    Option<Integer> offset{*this, "offset", 0, "Starting chunk/message index for readable nodes (default: 0)."};
    Option<Integer> limit{*this, "limit", 25,
                          "Maximum number of chunks/messages for readable nodes (default: 25, max: 500)."};
    OptionGroup<HeadTailOptions> ends{*this, "ends"};

    void validate() const override;
    void run() const override;
};

struct NodeSearch final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> query{*this, "query", "The search query."};
    Option<std::optional<std::string>> parent{*this, "parent",
                                              "Parent node or integration-root UUID to search within."};
    Option<std::optional<std::string>> kind{
        *this, "kind",
        "Filter by node kind or group: context, transcript, profile, notes, obsidian, document, local_folder, "
        "sharepoint, memory, meeting, messaging, email, or a NodeKind raw value."};
    Option<std::optional<std::string>> since{
        *this, "since", "Only search nodes updated at or after this date. Accepts ISO-8601 or yyyy-MM-dd."};
    Option<std::optional<std::string>> until{
        *this, "until", "Only search nodes updated at or before this date. Accepts ISO-8601 or yyyy-MM-dd."};
    Option<Integer> limit{*this, "limit", 10, "Maximum number of results to return (default: 10, max: 500)."};
    Flag<bool> literal{*this, "literal", "Use literal substring matching instead of hybrid search."};
    Option<std::optional<std::string>> owner{
        *this, "owner",
        "Orvane source owner scope: everything you can read (default all_readable). Narrow with current_user/me, team "
        "(teammates only), or a teammate user ID or email."};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
