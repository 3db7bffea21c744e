// `check-in`: a compact view of the user and their recent work, for the start of an agent's session.
#include "core/inputs/Checks.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "library/CheckInBriefing.h"
#include "library/Library.h"
#include "platform/files/Streams.h"

namespace orvane {

namespace {

constexpr std::chrono::seconds checkInTimeout{5}; // it stands in the way of an agent's first turn

/// Prints the hook's envelope around the briefing, or nothing when there is nothing to tell.
void printHookContext(const std::string& path) {
    const ServiceReply reply = serviceGet(path, checkInTimeout);
    failOnErrorStatus(reply);
    const auto document = platform::JsonDocument::parseObject(reply.data);
    if (!document) {
        throw CLIError::invalidInput("Invalid check-in response.");
    }
    const std::string briefing = checkInBriefing(document->object());
    if (briefing.empty()) {
        return;
    }
    JsonBody context;
    context.set("hookEventName", "SessionStart").set("additionalContext", briefing);
    JsonBody envelope;
    envelope.set("hookSpecificOutput", context);
    platform::writeStandardOutput({std::move(envelope).finish(), "\n"});
}

struct CheckIn final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "check-in", .abstract = "Load a compact Orvane check-in for agent session startup."};
    }

    Option<Integer> recentLimit{*this, "recent-limit", 10,
                                "Maximum number of recent documents to include (default: 10, max: 25)."};
    Flag<bool> hook{*this, "hook", "Print Claude Code/Codex hook additional context instead of raw JSON."};

    void validate() const override { requireBetween("recent-limit", recentLimit, 1, 25); }

    void run() const override {
        const std::string path = buildQueryPath("/api/check-in", QueryItems().add("recentLimit", recentLimit));
        if (!hook) {
            passOnGet(path, checkInTimeout);
            return;
        }
        try {
            printHookContext(path);
        } catch (...) { // NOLINT(bugprone-empty-catch)
            // An agent's session must start whatever happens here.
        }
    }
};

} // namespace

CommandType checkInCommand() {
    return CommandType::of<CheckIn>();
}

} // namespace orvane
