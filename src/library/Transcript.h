// `transcript`: synced AI conversations. All checks are made while the command runs.
#pragma once

#include "library/Paging.h"

namespace orvane {

struct Transcript final : ParsableCommand {
    static CommandConfiguration configuration();
};

struct TranscriptList final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::optional<std::string>> type{
        *this, "type",
        "Filter by source: chatgpt, claude, gemini, perplexity, openclaw, claude-code, claude-cowork, codex, cursor, "
        "pi, manus, grok."};
    Option<Integer> limit{*this, "limit", 50, "Maximum number of results (default: 50, max: 500)."};
    Option<std::optional<std::string>> owner{
        *this, "owner",
        "Orvane source owner scope: current_user/me (default authenticated user), team (teammates only), all_readable, "
        "teammate user ID, or teammate email."};

    void run() const override;
};

struct TranscriptGet final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the transcript or Orvane chat."};
    OptionGroup<ChunkPageOptions> page{*this, "page"};
    OptionGroup<HeadTailOptions> ends{*this, "ends"};

    void run() const override;
};

} // namespace orvane
