#include "library/Integration.h"

#include "core/Query.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"

namespace orvane {

CommandConfiguration Integration::configuration() {
    return {
        .abstract = "Inspect connected and team-shared integrations.",
        .ungroupedSubcommands = {CommandType::of<IntegrationList>()},
        .defaultSubcommand = CommandType::of<IntegrationList>(),
    };
}

CommandConfiguration IntegrationList::configuration() {
    return {.commandName = "list", .abstract = "List integrations with team and owner provenance."};
}

void IntegrationList::run() const {
    const QueryItems items =
        QueryItems().addIfGiven("platform", platform).addIfGiven("status", status).addIfGiven("teamId", teamId);
    printReply(serviceGet(buildQueryPath("/api/integrations", items), standardTimeout));
}

} // namespace orvane
