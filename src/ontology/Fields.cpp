// `primitives`, `fields` and `field`: what a Type says of its Objects. Bodies are drafts, passed through as written.
#include "core/inputs/Checks.h"
#include "ontology/CommonShapes.h"
#include "ontology/Drafts.h"
#include "ontology/OntologyGroups.h"
#include "ontology/OntologyInputs.h"

namespace orvane {

namespace {

constexpr OntologyResource fieldResource{
    .collection = "fields",
    .word = "field",
    .idHelp = "Field UUID.",
    .getAbstract = "Get one recursive Field as JSON.",
    .deleteAbstract = "Delete an unused declared Field.",
};

constexpr OntologyListing primitiveListing{
    .word = "primitives",
    .abstract = "List globally seeded primitive types visible from a Space.",
    .parentKey = "space-id",
    .parentHelp = "Space UUID.",
    .parents = "spaces",
    .children = "primitive-types",
};

constexpr OntologyListing fieldListing{
    .word = "fields",
    .abstract = "List declared and inherited Fields for a Type.",
    .parentKey = "type-id",
    .parentHelp = "Type UUID.",
    .parents = "types",
    .children = "fields",
};

struct OntologyFieldCreate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "create",
                .abstract = "Create a top-level or nested Field from a JSON draft.",
                .discussion = "Choose exactly one parent: --type-id adds a Field to a Type; --parent-field-id adds a "
                              "child to a compound Field. The JSON supports primitive, reference, enum, and "
                              "recursively nested compound definitions."};
    }

    Option<std::optional<std::string>> typeId{*this, "type-id", "Owning Type UUID."};
    Option<std::optional<std::string>> parentFieldId{*this, "parent-field-id", "Parent compound Field UUID."};
    Option<FilePath> fromFile{*this, "from-file", "JSON draft file, or - for stdin."};

    void validate() const override {
        validateExactlyOne({typeId, parentFieldId}, "Provide exactly one of --type-id or --parent-field-id.");
    }

    void run() const override {
        OntologyDraft draft = readOntologyJSONObject(*fromFile, "Field draft");
        const std::string parent = typeId ? "types/" + canonicalUUID(*typeId, "type-id")
                                          : "fields/" + canonicalUUID(*parentFieldId, "parent-field-id");
        postOntology(parent + "/fields", std::move(draft.json));
    }
};

struct OntologyFieldUpdate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "update",
                .abstract = "Update direct Field properties from a JSON changes object.",
                .discussion = "The backend accepts name, emoji, description, minCount, maxCount, sortIndex, and direct "
                              "primitive/reference/enum definition changes. Compound children are managed with field "
                              "create and delete."};
    }

    Argument<std::string> id{*this, "id", "Field UUID."};
    Option<FilePath> fromFile{*this, "from-file", "JSON changes file, or - for stdin."};

    void run() const override {
        const std::string path = "fields/" + canonicalUUID(*id, "id");
        OntologyDraft changes = readOntologyJSONObject(*fromFile, "Field changes");
        if (changes.isEmpty) {
            throw nothingToUpdate();
        }
        patchOntology(path, std::move(changes.json));
    }
};

struct OntologyField final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "field",
            .abstract = "Get, create, update, or delete a recursive Field.",
            .discussion = "Create and update bodies use the exact Ontology V2 JSON contract. Pass --from-file - to "
                          "read JSON from stdin.",
            .ungroupedSubcommands = {CommandType::of<OntologyGet<fieldResource>>(),
                                     CommandType::of<OntologyFieldCreate>(), CommandType::of<OntologyFieldUpdate>(),
                                     CommandType::of<OntologyDelete<fieldResource>>()},
        };
    }
};

} // namespace

CommandType ontologyPrimitivesCommand() {
    return CommandType::of<OntologyList<primitiveListing>>();
}

CommandType ontologyFieldsCommand() {
    return CommandType::of<OntologyList<fieldListing>>();
}

CommandType ontologyFieldCommand() {
    return CommandType::of<OntologyField>();
}

} // namespace orvane
