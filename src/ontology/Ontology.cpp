// `ontology`: the door to the family. Its identifiers reach the service in lower case, whatever was typed, and all of
// them are checked while a command runs.
#include "ontology/Ontology.h"

#include "core/CommandModel.h"
#include "ontology/OntologyGroups.h"

namespace orvane {

namespace {

struct Ontology final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "ontology",
            .abstract = "Read and mutate graph-native Ontology V2 resources.",
            .ungroupedSubcommands =
                {
                    ontologySpacesCommand(),
                    ontologySpaceCommand(),
                    ontologyTypesCommand(),
                    ontologyTypeCommand(),
                    ontologyPrimitivesCommand(),
                    ontologyFieldsCommand(),
                    ontologyFieldCommand(),
                    ontologyEnumsCommand(),
                    ontologyEnumCommand(),
                    ontologyEnumCasesCommand(),
                    ontologyEnumCaseCommand(),
                    ontologyObjectsCommand(),
                    ontologyObjectCommand(),
                    ontologyAssertionsCommand(),
                    ontologyAssertionCommand(),
                },
        };
    }
};

} // namespace

CommandType ontologyCommand() {
    return CommandType::of<Ontology>();
}

} // namespace orvane
