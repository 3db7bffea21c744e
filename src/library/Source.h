// `source`: the worlds that the library's content comes from. All checks are made before anything runs.
#pragma once

#include "library/Paging.h"

namespace orvane {

struct Source final : ParsableCommand {
    static CommandConfiguration configuration();
};

struct SourceList final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::optional<std::string>> parentId{*this, "parentId", "Optional parent node UUID to list children for."};
    Option<std::string> sourceType{
        *this, "sourceType", "all",
        "Filter by source world: all, context, transcript, profile, notes, obsidian, document, local_folder, "
        "sharepoint, memory, meeting, messaging, email. Provider-named meeting values are accepted only as "
        "compatibility aliases."};
    Option<std::optional<std::string>> since{
        *this, "since", "Only include children updated at or after this date. Accepts ISO-8601 or yyyy-MM-dd."};
    Option<std::optional<std::string>> until{
        *this, "until",
        "Only include children updated at or before this date. Accepts ISO-8601 or yyyy-MM-dd; date-only values "
        "resolve to the local day's final second."};
    Option<Integer> limit{*this, "limit", 100,
                          "Maximum number of roots or children to return (default: 100, max: 500)."};
    Option<std::optional<std::string>> owner{
        *this, "owner",
        "Orvane source owner scope: current_user/me (default authenticated user), team (teammates only), all_readable, "
        "teammate user ID, or teammate email."};

    void validate() const override;
    void run() const override;
};

struct SourceGet final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the source node."};
    OptionGroup<ChunkPageOptions> page{*this, "page"};
    OptionGroup<HeadTailOptions> ends{*this, "ends"};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
