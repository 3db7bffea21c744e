#include "library/CheckIn.h"

#include "core/CLIError.h"
#include "core/Query.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "platform/Streams.h"

namespace orvane {

namespace {

constexpr double checkInTimeout = 5; // it stands in the way of an agent's first turn

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
    platform::writeStandardOutput(JsonBody().set("hookSpecificOutput", context).text() + "\n");
}

} // namespace

CommandConfiguration CheckIn::configuration() {
    return {.commandName = "check-in", .abstract = "Load a compact Orvane check-in for agent session startup."};
}

void CheckIn::validate() const {
    if (recentLimit < 1 || recentLimit > 25) {
        throw ValidationError{"recent-limit must be between 1 and 25."};
    }
}

void CheckIn::run() const {
    const std::string path = buildQueryPath("/api/check-in", QueryItems().add("recentLimit", recentLimit));
    if (!hook) {
        printReply(serviceGet(path, checkInTimeout));
        return;
    }
    try {
        printHookContext(path);
    } catch (...) {
        // An agent's session must start whatever happens here.
    }
}

} // namespace orvane
