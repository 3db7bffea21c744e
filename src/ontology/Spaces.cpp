// `spaces` and `space`: the Spaces that hold Types, Enums and Objects.
#include "ontology/CommonShapes.h"
#include "ontology/OntologyGroups.h"
#include "ontology/OntologyInputs.h"

namespace orvane {

namespace {

constexpr OntologyResource spaceResource{
    .collection = "spaces",
    .word = "space",
    .idHelp = "Space UUID.",
    .getAbstract = "Get one Space as JSON.",
    .deleteAbstract = "Delete an empty Space.",
};

struct OntologySpaces final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "spaces", .abstract = "List readable Spaces as JSON."};
    }

    void run() const override { getOntology("spaces"); }
};

struct OntologySpaceCreate final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "create", .abstract = "Create a Space."}; }

    Argument<std::string> name{*this, "name", "Space name."};
    Option<std::optional<std::string>> emoji{*this, "emoji", "Space emoji."};
    Option<std::optional<std::string>> description{*this, "description", "Purpose and scope of the Space."};

    void run() const override { postOntology("spaces", ontologyCreationBody(name, emoji, description)); }
};

struct OntologySpaceUpdate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "update", .abstract = "Update Space metadata."};
    }

    Argument<std::string> id{*this, "id", "Space UUID."};
    OptionGroup<OntologyUpdateOptions> changes{*this, "changes"};

    void run() const override {
        const std::string path = "spaces/" + canonicalUUID(*id, "id");
        patchOntology(path, changes->body());
    }
};

struct OntologySpace final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "space",
            .abstract = "Get, create, update, or delete a Space.",
            .ungroupedSubcommands = {CommandType::of<OntologyGet<spaceResource>>(),
                                     CommandType::of<OntologySpaceCreate>(), CommandType::of<OntologySpaceUpdate>(),
                                     CommandType::of<OntologyDelete<spaceResource>>()},
        };
    }
};

} // namespace

CommandType ontologySpacesCommand() {
    return CommandType::of<OntologySpaces>();
}

CommandType ontologySpaceCommand() {
    return CommandType::of<OntologySpace>();
}

} // namespace orvane
