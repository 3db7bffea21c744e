// `find`: every descendant of a node.
#include "core/inputs/Checks.h"
#include "core/inputs/HelpTexts.h"
#include "core/inputs/Identifiers.h"
#include "core/inputs/TypeGroups.h"
#include "shell/EmailFilters.h"
#include "shell/FilterHelp.h"
#include "shell/InitiatedArgument.h"
#include "shell/NodeTable.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct Find final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "find",
                .abstract = "List every descendant of a node (any depth) matching the filters, newest first. Use the "
                            "Contexts root id to search all your contexts and folders."};
    }

    Argument<std::string> parent{
        *this, "parent",
        "Node UUID to search under: the Contexts root, an integration root, a folder, or a transcript."};
    Option<std::optional<ListTypeGroup>> type{*this, "type", typeHelp};
    Option<std::optional<std::string>> since{*this, "since", listSinceHelp};
    Option<std::optional<std::string>> until{*this, "until", listUntilHelp};
    Option<Integer> limit{*this, "limit", 100, listLimitHelp};
    Option<Integer> offset{*this, "offset", 0, offsetHelp};
    Option<std::optional<std::string>> owner{
        *this, "owner",
        "Orvane source owner scope: everything you can read (default all_readable). Narrow with current_user/me, team, "
        "or a teammate user ID or email."};
    Option<std::optional<std::string>> name{*this, "name", nameFilterHelp};
    Option<std::optional<InitiatedArgument>> initiated{
        *this, "initiated", "Filter sessions by who or what initiated them: human, agent, or automation."};
    OptionGroup<EmailListingFilterOptions> email{*this, "email"};
    Flag<bool> json{*this, "json", jsonTableHelp};

    void validate() const override {
        canonicalUUID(*parent, "parent");
        validatePage(limit, offset);
    }

    void run() const override {
        const QueryItems items = QueryItems()
                                     .add("recursive", "true")
                                     .add("parentId", parent)
                                     .add("limit", limit)
                                     .add("offset", offset)
                                     .addIfGiven("kind", type)
                                     .addIfGiven("since", since)
                                     .addIfGiven("until", until)
                                     .addIfGiven("owner", owner)
                                     .addIfGiven("name", name)
                                     .addIfGiven("initiated", initiated)
                                     .add(emailFilterItems(*email))
                                     .add("cliVerb", "find");
        renderNodeListing(
            {.path = buildQueryPath("/api/nodes", items), .verb = "find", .offset = offset, .json = json});
    }
};

} // namespace

CommandType findCommand() {
    return CommandType::of<Find>();
}

} // namespace orvane
