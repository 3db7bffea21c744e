// `transcript`: synced AI conversations. All checks are made while the command runs.
#include "core/inputs/Checks.h"
#include "core/inputs/HelpTexts.h"
#include "core/inputs/Identifiers.h"
#include "core/service/Answers.h"
#include "library/Library.h"
#include "library/ReadWindow.h"

namespace orvane {

namespace {

struct TranscriptList final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "list", .abstract = "List synced conversation transcripts."};
    }

    Option<std::optional<std::string>> type{
        *this, "type",
        "Filter by source: chatgpt, claude, gemini, perplexity, openclaw, claude-code, claude-cowork, codex, cursor, "
        "pi, manus, grok.",
        offering({"chatgpt", "claude", "gemini", "perplexity", "openclaw", "claude-code", "claude-cowork", "codex",
                  "cursor", "pi", "manus", "grok"})};
    Option<Integer> limit{*this, "limit", 50, "Maximum number of results (default: 50, max: 500)."};
    Option<std::optional<std::string>> owner{*this, "owner", ownOwnerHelp};

    void run() const override {
        requireListLimit(limit);
        passOnGet(buildQueryPath("/api/transcripts",
                                 QueryItems().add("limit", limit).addIfGiven("type", type).addIfGiven("owner", owner)));
    }
};

struct TranscriptGet final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "get",
                .abstract = "Get the content of a transcript or Orvane chat by ID, with optional pagination."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the transcript or Orvane chat."};
    OptionGroup<ChunkPageOptions> page{*this, "page"};
    OptionGroup<HeadTailOptions> ends{*this, "ends"};

    void run() const override {
        requireUUID(*id);
        checkWhileRunning([&] { ends->checkLimits(); });
        passOnGet(buildQueryPath("/api/transcripts/" + *id, page->items().add(ends->items())));
    }
};

struct Transcript final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "transcript",
            .abstract = "Access synced AI conversation transcripts.",
            .ungroupedSubcommands = {CommandType::of<TranscriptList>(), CommandType::of<TranscriptGet>()},
            .defaultSubcommand = CommandType::of<TranscriptList>(),
        };
    }
};

} // namespace

CommandType transcriptCommand() {
    return CommandType::of<Transcript>();
}

} // namespace orvane
