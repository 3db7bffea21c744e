#include "library/Transcript.h"

#include "core/CLIError.h"
#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"

namespace orvane {

CommandConfiguration Transcript::configuration() {
    return {
        .abstract = "Access synced AI conversation transcripts.",
        .ungroupedSubcommands = {CommandType::of<TranscriptList>(), CommandType::of<TranscriptGet>()},
        .defaultSubcommand = CommandType::of<TranscriptList>(),
    };
}

CommandConfiguration TranscriptList::configuration() {
    return {.commandName = "list", .abstract = "List synced conversation transcripts."};
}

void TranscriptList::run() const {
    requireListLimit(limit);
    const QueryItems items = QueryItems().add("limit", limit).addIfGiven("type", type).addIfGiven("owner", owner);
    printReply(serviceGet(buildQueryPath("/api/transcripts", items), standardTimeout));
}

CommandConfiguration TranscriptGet::configuration() {
    return {.commandName = "get",
            .abstract = "Get the content of a transcript or Orvane chat by ID, with optional pagination."};
}

void TranscriptGet::run() const {
    requireUUID(*id);
    if (const auto fault = headTailFault(*ends)) {
        throw CLIError::invalidInput(*fault);
    }
    const QueryItems items = chunkPageItems(*page).add(headTailItems(*ends));
    printReply(serviceGet(buildQueryPath("/api/transcripts/" + *id, items), standardTimeout));
}

} // namespace orvane
