#include "library/Team.h"

#include "core/Rendering.h"
#include "core/ServiceClient.h"

namespace orvane {

CommandConfiguration Team::configuration() {
    return {
        .abstract = "Inspect Orvane teams available to this account.",
        .ungroupedSubcommands = {CommandType::of<TeamList>()},
        .defaultSubcommand = CommandType::of<TeamList>(),
    };
}

CommandConfiguration TeamList::configuration() {
    return {.commandName = "list", .abstract = "List teams, members, and shared resources."};
}

void TeamList::run() const {
    printReply(serviceGet("/api/teams", standardTimeout));
}

} // namespace orvane
