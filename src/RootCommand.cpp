#include "RootCommand.h"

#include "Version.h"
#include "core/CommandModel.h"
#include "core/OntologyGate.h"
#include "extras/Extras.h"
#include "library/Library.h"
#include "ontology/Ontology.h"
#include "shell/Shell.h"
#include "skills/Skills.h"

namespace orvane {

namespace {

std::vector<CommandType> subcommands() {
    std::vector<CommandType> commands{
        statusCommand(),      whoamiCommand(), analyticsCommand(), feedbackCommand(),     checkInCommand(),
        profileCommand(),     searchCommand(), teamCommand(),      sharingCommand(),      assetCommand(),
        integrationCommand(), nodeCommand(),   sourceCommand(),    contextCommand(),      folderCommand(),
        transcriptCommand(),  deleteCommand(), lsCommand(),        findCommand(),         catCommand(),
        headCommand(),        tailCommand(),   statCommand(),      grepCommand(),         modalityCommand(),
        mkdirCommand(),       teeCommand(),    sedCommand(),       replaceLinesCommand(), mvCommand(),
        rmCommand(),          rmdirCommand(),  skillCommand(),
    };
    if (isOntologyEnabled(platform::infoDictionaryBoolean)) {
        commands.push_back(ontologyCommand());
    }
    return commands;
}

struct OrvaneCLI final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "orvane-cli",
            .abstract = "Orvane CLI — access your personal context library from external agents.",
            .version = orvaneVersion,
            .ungroupedSubcommands = subcommands(),
        };
    }
};

} // namespace

CommandType rootCommand() {
    return CommandType::of<OrvaneCLI>();
}

} // namespace orvane
