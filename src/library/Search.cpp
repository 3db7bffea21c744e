// `search`: the whole library by meaning or by its letters.
#include "core/inputs/HelpTexts.h"
#include "core/inputs/Identifiers.h"
#include "core/inputs/TypeGroups.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "library/Library.h"

namespace orvane {

namespace {

struct Search final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "search", .abstract = "Search across your Orvane documents."};
    }

    Argument<std::string> query{*this, "query", "The search query."};
    Option<std::optional<SearchTypeGroup>> type{
        *this, "type",
        "Filter by document type: context, transcript, profile, notes, obsidian, document, local_folder, sharepoint, "
        "memory, meeting, messaging, email, or skill. Groups are provider-neutral (document spans every document "
        "source; local_folder and sharepoint narrow to one); provider-named meeting values are accepted only as "
        "compatibility aliases."};
    Option<std::optional<std::string>> owner{*this, "owner", ownOwnerHelp};
    Option<Integer> limit{*this, "limit", 10, searchLimitHelp};
    Option<std::optional<std::string>> parentId{*this, "parent-id",
                                                "Restrict results to this source node and its descendants."};
    Flag<bool> literal{*this, "literal", literalHelp};

    void validate() const override {
        if (limit < 1) {
            throw ValidationError{"Limit must be greater than 0."};
        }
        if (limit > 500) {
            throw ValidationError{"Limit must be 500 or less."};
        }
        validateUUIDIfGiven(parentId, "parent-id");
    }

    void run() const override {
        passOnGet(buildQueryPath("/api/contexts/search", QueryItems()
                                                             .add("q", query)
                                                             .add("limit", limit)
                                                             .addIfGiven("type", type)
                                                             .addIfGiven("owner", owner)
                                                             .addIfGiven("parentId", parentId)
                                                             .addIfSet("literal", literal)));
    }
};

} // namespace

CommandType searchCommand() {
    return CommandType::of<Search>();
}

} // namespace orvane
