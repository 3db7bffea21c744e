// `enums` and `enum`: closed sets of values.
#include "ontology/CommonShapes.h"
#include "ontology/OntologyGroups.h"
#include "ontology/OntologyInputs.h"

namespace orvane {

namespace {

constexpr OntologyResource enumResource{
    .collection = "enum-types",
    .word = "enum",
    .idHelp = "EnumType UUID.",
    .getAbstract = "Get one EnumType.",
    .deleteAbstract = "Delete an unused EnumType.",
};

constexpr OntologyListing enumListing{
    .word = "enums",
    .abstract = "List EnumTypes in a Space.",
    .parentKey = "space-id",
    .parentHelp = "Space UUID.",
    .parents = "spaces",
    .children = "enum-types",
};

struct OntologyEnumCreate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "create", .abstract = "Create an EnumType in a Space."};
    }

    Argument<std::string> spaceId{*this, "space-id", "Space UUID."};
    Argument<std::string> name{*this, "name", "EnumType name."};
    Option<std::optional<std::string>> emoji{*this, "emoji", "EnumType emoji."};
    Option<std::optional<std::string>> description{*this, "description", "Meaning and intended use of the enum."};

    void run() const override {
        postOntology("spaces/" + canonicalUUID(*spaceId, "space-id") + "/enum-types",
                     ontologyCreationBody(name, emoji, description));
    }
};

struct OntologyEnumUpdate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "update", .abstract = "Update EnumType metadata."};
    }

    Argument<std::string> id{*this, "id", "EnumType UUID."};
    OptionGroup<OntologyUpdateOptions> changes{*this, "changes"};

    void run() const override {
        const std::string path = "enum-types/" + canonicalUUID(*id, "id");
        patchOntology(path, changes->body());
    }
};

struct OntologyEnum final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "enum",
            .abstract = "Get, create, update, or delete an EnumType.",
            .ungroupedSubcommands = {CommandType::of<OntologyGet<enumResource>>(),
                                     CommandType::of<OntologyEnumCreate>(), CommandType::of<OntologyEnumUpdate>(),
                                     CommandType::of<OntologyDelete<enumResource>>()},
        };
    }
};

} // namespace

CommandType ontologyEnumsCommand() {
    return CommandType::of<OntologyList<enumListing>>();
}

CommandType ontologyEnumCommand() {
    return CommandType::of<OntologyEnum>();
}

} // namespace orvane
