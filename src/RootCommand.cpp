#include "RootCommand.h"

#include "Version.h"
#include "core/CommandModel.h"
#include "extras/Extras.h"
#include "library/Library.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct OrvaneCLI final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "orvane-cli",
            .abstract = "Orvane CLI — access your personal context library from external agents.",
            .version = orvaneVersion,
            .ungroupedSubcommands =
                {
                    statusCommand(), whoamiCommand(),      checkInCommand(), profileCommand(),      searchCommand(),
                    teamCommand(),   integrationCommand(), nodeCommand(),    sourceCommand(),       contextCommand(),
                    folderCommand(), transcriptCommand(),  deleteCommand(),  lsCommand(),           findCommand(),
                    catCommand(),    headCommand(),        tailCommand(),    statCommand(),         grepCommand(),
                    mkdirCommand(),  teeCommand(),         sedCommand(),     replaceLinesCommand(), mvCommand(),
                    rmCommand(),     rmdirCommand(),
                },
        };
    }
};

} // namespace

CommandType rootCommand() {
    return CommandType::of<OrvaneCLI>();
}

} // namespace orvane
