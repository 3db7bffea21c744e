// `node`: the graph items that everything in the library is made of. All checks are made before anything runs.
#include "core/inputs/Checks.h"
#include "core/inputs/HelpTexts.h"
#include "core/inputs/Identifiers.h"
#include "core/service/Answers.h"
#include "library/Library.h"
#include "library/ReadWindow.h"

namespace orvane {

namespace {

constexpr const char* kindHelp =
    "Filter by node kind or group: context, transcript, profile, notes, obsidian, document, local_folder, sharepoint, "
    "memory, meeting, messaging, email, or a NodeKind raw value.";

struct NodeList final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "list",
                .abstract = "List nodes globally or direct children under a node or integration root."};
    }

    Option<std::optional<std::string>> parent{*this, "parent", "Parent node or integration-root UUID to list under."};
    Option<std::optional<std::string>> kind{*this, "kind", kindHelp};
    Option<std::optional<std::string>> since{
        *this, "since", "Only include nodes updated at or after this date. Accepts ISO-8601 or yyyy-MM-dd."};
    Option<std::optional<std::string>> until{
        *this, "until", "Only include nodes updated at or before this date. Accepts ISO-8601 or yyyy-MM-dd."};
    Option<Integer> limit{*this, "limit", 100, listLimitHelp};
    Option<Integer> offset{*this, "offset", 0, offsetHelp};
    Option<std::optional<std::string>> owner{*this, "owner", readableOwnerHelp};
    Option<std::optional<std::string>> name{*this, "name", nameFilterHelp};

    void validate() const override {
        validateParentIfGiven(parent);
        validatePage(limit, offset);
    }

    void run() const override {
        passOnGet(buildQueryPath("/api/nodes", QueryItems()
                                                   .add("limit", limit)
                                                   .add("offset", offset)
                                                   .addIfGiven("parentId", parent)
                                                   .addIfGiven("kind", kind)
                                                   .addIfGiven("since", since)
                                                   .addIfGiven("until", until)
                                                   .addIfGiven("owner", owner)
                                                   .addIfGiven("name", name)));
    }
};

struct NodeGet final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "get", .abstract = "Get a node by ID, including readable content when available."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the node."};
    Option<Integer> offset{*this, "offset", 0, "Starting chunk/message index for readable nodes (default: 0)."};
    Option<Integer> limit{*this, "limit", 25,
                          "Maximum number of chunks/messages for readable nodes (default: 25, max: 500)."};
    OptionGroup<HeadTailOptions> ends{*this, "ends"};

    void validate() const override {
        validateUUID(*id);
        validateOffset(offset);
        validateLimit(limit);
        ends->checkLimits();
    }

    void run() const override {
        passOnGet(buildQueryPath("/api/nodes/" + *id,
                                 QueryItems().add("offset", offset).add("limit", limit).add(ends->items())));
    }
};

struct NodeSearch final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "search",
                .abstract = "Search nodes, optionally scoped under a node or integration root."};
    }

    Argument<std::string> query{*this, "query", "The search query."};
    Option<std::optional<std::string>> parent{*this, "parent",
                                              "Parent node or integration-root UUID to search within."};
    Option<std::optional<std::string>> kind{*this, "kind", kindHelp};
    Option<std::optional<std::string>> since{
        *this, "since", "Only search nodes updated at or after this date. Accepts ISO-8601 or yyyy-MM-dd."};
    Option<std::optional<std::string>> until{
        *this, "until", "Only search nodes updated at or before this date. Accepts ISO-8601 or yyyy-MM-dd."};
    Option<Integer> limit{*this, "limit", 10, searchLimitHelp};
    Flag<bool> literal{*this, "literal", literalHelp};
    Option<std::optional<std::string>> owner{*this, "owner", readableOwnerHelp};

    void validate() const override {
        validateUUIDIfGiven(parent, "parent");
        validateLimit(limit);
    }

    void run() const override {
        passOnGet(buildQueryPath("/api/nodes/search", QueryItems()
                                                          .add("q", query)
                                                          .add("limit", limit)
                                                          .addIfGiven("parentId", parent)
                                                          .addIfGiven("kind", kind)
                                                          .addIfGiven("since", since)
                                                          .addIfGiven("until", until)
                                                          .addIfGiven("owner", owner)
                                                          .addIfSet("literal", literal)));
    }
};

struct Node final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "node",
            .abstract = "List, read, and search first-class Orvane graph nodes.",
            .ungroupedSubcommands = {CommandType::of<NodeList>(), CommandType::of<NodeGet>(),
                                     CommandType::of<NodeSearch>()},
            .defaultSubcommand = CommandType::of<NodeList>(),
        };
    }
};

} // namespace

CommandType nodeCommand() {
    return CommandType::of<Node>();
}

} // namespace orvane
