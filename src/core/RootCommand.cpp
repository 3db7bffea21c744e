#include "core/RootCommand.h"

#include "core/StatusCommands.h"
#include "library/CheckIn.h"
#include "library/Search.h"
#include "shell/Find.h"
#include "shell/Ls.h"

namespace orvane {

CommandConfiguration OrvaneCLI::configuration() {
    return {
        .commandName = "orvane-cli",
        .abstract = "Orvane CLI — access your personal context library from external agents.",
        .version = "0.4.0",
        .ungroupedSubcommands =
            {
                CommandType::of<Status>(),
                CommandType::of<WhoAmI>(),
                CommandType::of<CheckIn>(),
                CommandType::of<Search>(),
                CommandType::of<Ls>(),
                CommandType::of<Find>(),
            },
    };
}

} // namespace orvane
