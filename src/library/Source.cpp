// `source`: the worlds that the library's content comes from. All checks are made before anything runs.
#include <algorithm>

#include "core/inputs/Checks.h"
#include "core/inputs/HelpTexts.h"
#include "core/inputs/Identifiers.h"
#include "core/service/Answers.h"
#include "library/Library.h"
#include "library/ReadWindow.h"
#include "platform/text/Text.h"

namespace orvane {

namespace {

std::vector<std::string_view> sourceTypes() {
    return {"all",          "context",    "transcript", "profile", "notes",     "obsidian", "document",
            "local_folder", "sharepoint", "memory",     "meeting", "messaging", "email"};
}

void validateSourceType(const std::string& type) {
    const std::vector<std::string_view> types = sourceTypes();
    const bool isAlias = type == "granola" || type == "read_ai"; // former words, accepted without being offered
    if (!isAlias && std::find(types.begin(), types.end(), type) == types.end()) {
        throw ValidationError{"source-type must be one of: " + platform::joined({types.begin(), types.end()}, ", ") +
                              "."};
    }
}

struct SourceList final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "list", .abstract = "List source groups or children of a source node."};
    }

    Option<std::optional<std::string>> parentId{*this, "parent-id", "Optional parent node UUID to list children for."};
    Option<std::string> sourceType{
        *this, "source-type", "all",
        "Filter by source world: all, context, transcript, profile, notes, obsidian, document, local_folder, "
        "sharepoint, memory, meeting, messaging, email. Provider-named meeting values are accepted only as "
        "compatibility aliases.",
        offering(sourceTypes())};
    Option<std::optional<std::string>> since{
        *this, "since", "Only include children updated at or after this date. Accepts ISO-8601 or yyyy-MM-dd."};
    Option<std::optional<std::string>> until{
        *this, "until",
        "Only include children updated at or before this date. Accepts ISO-8601 or yyyy-MM-dd; date-only values "
        "resolve to the local day's final second."};
    Option<Integer> limit{*this, "limit", 100,
                          "Maximum number of roots or children to return (default: 100, max: 500)."};
    Option<std::optional<std::string>> owner{*this, "owner", ownOwnerHelp};

    void validate() const override {
        validateUUIDIfGiven(parentId, "parent-id");
        validateSourceType(*sourceType);
        validateLimit(limit);
    }

    void run() const override {
        passOnGet(buildQueryPath("/api/sources", QueryItems()
                                                     .add("sourceType", sourceType)
                                                     .add("limit", limit)
                                                     .addIfGiven("parentId", parentId)
                                                     .addIfGiven("since", since)
                                                     .addIfGiven("until", until)
                                                     .addIfGiven("owner", owner)));
    }
};

struct SourceGet final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "get", .abstract = "Read a source node by ID, including Obsidian notes."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the source node."};
    OptionGroup<ChunkPageOptions> page{*this, "page"};
    OptionGroup<HeadTailOptions> ends{*this, "ends"};

    void validate() const override {
        validateUUID(*id);
        if (page->offset) {
            validateOffset(*page->offset);
        }
        if (page->limit && *page->limit < 1) {
            throw ValidationError{"limit must be >= 1."};
        }
        ends->checkLimits();
    }

    void run() const override { passOnGet(buildQueryPath("/api/sources/" + *id, page->items().add(ends->items()))); }
};

struct Source final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "source",
            .abstract = "Browse available source worlds and folder-like source nodes.",
            .ungroupedSubcommands = {CommandType::of<SourceList>(), CommandType::of<SourceGet>()},
            .defaultSubcommand = CommandType::of<SourceList>(),
        };
    }
};

} // namespace

CommandType sourceCommand() {
    return CommandType::of<Source>();
}

} // namespace orvane
