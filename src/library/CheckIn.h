// `check-in`: a compact view of the user and their recent work, for the start of an agent's session.
#pragma once

#include "core/CommandModel.h"
#include "platform/Json.h"

namespace orvane {

struct CheckIn final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<Integer> recentLimit{*this, "recentLimit", 10,
                                "Maximum number of recent documents to include (default: 10, max: 25)."};
    Flag<bool> hook{*this, "hook", "Print Claude Code/Codex hook additional context instead of raw JSON."};

    void validate() const override;
    void run() const override;
};

/// The Markdown briefing of a check-in's answer; empty when there is nothing to tell.
std::string checkInBriefing(const platform::JsonObject& checkIn);

} // namespace orvane
