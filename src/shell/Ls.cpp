// `ls`: the children of a node, or the source roots.
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

struct Ls final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "ls",
                .abstract = "List the children of a node, or the source roots when no node is given."};
    }

    Argument<std::optional<std::string>> parent{
        *this, "parent", "Parent node or integration-root UUID to list under. Omit to list roots."};
    Option<std::optional<ListTypeGroup>> type{*this, "type", typeHelp};
    Option<std::optional<std::string>> since{*this, "since", listSinceHelp};
    Option<std::optional<std::string>> until{*this, "until", listUntilHelp};
    Option<Integer> limit{*this, "limit", 100, listLimitHelp};
    Option<Integer> offset{*this, "offset", 0, offsetHelp};
    Option<std::optional<std::string>> owner{*this, "owner", readableOwnerHelp};
    Option<std::optional<std::string>> name{*this, "name", nameFilterHelp};
    Option<std::optional<InitiatedArgument>> initiated{*this, "initiated", initiatedHelp};
    Flag<bool> sortByTime{*this,
                          "sort-by-time",
                          "Sort by update time, newest first, instead of the default name order (only the Contexts "
                          "root sorts by name; other listings are already newest-first).",
                          {.names = {longName(), customShort("t")}}};
    OptionGroup<EmailListingFilterOptions> email{*this, "email"};
    Flag<bool> json{*this, "json", jsonTableHelp};

    void validate() const override {
        validateParentIfGiven(parent);
        validatePage(limit, offset);
    }

    void run() const override {
        const QueryItems items = QueryItems()
                                     .add("limit", limit)
                                     .add("offset", offset)
                                     .addIfGiven("parentId", parent)
                                     .addIfGiven("kind", type)
                                     .addIfGiven("since", since)
                                     .addIfGiven("until", until)
                                     .addIfGiven("owner", owner)
                                     .addIfGiven("name", name)
                                     .addIfGiven("initiated", initiated)
                                     .addIfSet("sort", sortByTime, "updated")
                                     .add(emailFilterItems(*email))
                                     .add("cliVerb", "ls");
        renderNodeListing({.path = buildQueryPath("/api/nodes", items), .verb = "ls", .offset = offset, .json = json});
    }
};

} // namespace

CommandType lsCommand() {
    return CommandType::of<Ls>();
}

} // namespace orvane
