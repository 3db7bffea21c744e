// `search`: the search over all of the user's documents.
#pragma once

#include "core/CommandModel.h"
#include "shell/Vocabulary.h"

namespace orvane {

struct Search final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> query{*this, "query", "The search query."};
    Option<std::optional<SearchTypeGroup>> type{
        *this, "type",
        "Filter by document type: context, transcript, profile, notes, obsidian, document, local_folder, sharepoint, "
        "memory, meeting, messaging, email, or skill. Groups are provider-neutral (document spans every document "
        "source; local_folder and sharepoint narrow to one); provider-named meeting values are accepted only as "
        "compatibility aliases."};
    Option<std::optional<std::string>> owner{
        *this, "owner",
        "Orvane source owner scope: current_user/me (default authenticated user), team (teammates only), all_readable, "
        "teammate user ID, or teammate email."};
    Option<Integer> limit{*this, "limit", 10, "Maximum number of results to return (default: 10, max: 500)."};
    Option<std::optional<std::string>> parentId{*this, "parentId",
                                                "Restrict results to this source node and its descendants."};
    Flag<bool> literal{*this, "literal", "Use literal substring matching instead of hybrid search."};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
