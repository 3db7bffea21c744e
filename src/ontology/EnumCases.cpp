// `enum-cases` and `enum-case`: the values of a closed set, in their order.
#include "ontology/CommonShapes.h"
#include "ontology/OntologyGroups.h"
#include "ontology/OntologyInputs.h"

namespace orvane {

namespace {

constexpr OntologyResource enumCaseResource{
    .collection = "enum-cases",
    .word = "enum case",
    .idHelp = "EnumCase UUID.",
    .getAbstract = "Get one EnumCase.",
    .deleteAbstract = "Delete an unused EnumCase.",
};

void requireSortIndex(Integer index) {
    if (index < 0) {
        throw ValidationError{"sort-index must be non-negative."};
    }
}

constexpr OntologyListing enumCaseListing{
    .word = "enum-cases",
    .abstract = "List ordered cases of an EnumType.",
    .parentKey = "enum-id",
    .parentHelp = "EnumType UUID.",
    .parents = "enum-types",
    .children = "cases",
};

struct OntologyEnumCaseCreate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "create", .abstract = "Create an ordered EnumCase."};
    }

    Argument<std::string> enumId{*this, "enum-id", "EnumType UUID."};
    Argument<std::string> name{*this, "name", "Case name."};
    Option<std::optional<std::string>> emoji{*this, "emoji", "Case emoji."};
    Option<std::optional<std::string>> description{*this, "description", "Meaning of the case."};
    Option<Integer> sortIndex{*this, "sort-index", 0, "Zero-based display order."};

    void run() const override {
        const std::string path = "enum-types/" + canonicalUUID(*enumId, "enum-id") + "/cases";
        requireSortIndex(sortIndex);
        JsonBody body = ontologyCreationBody(name, emoji, description);
        body.set("sortIndex", sortIndex);
        postOntology(path, std::move(body));
    }
};

struct OntologyEnumCaseUpdate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "update", .abstract = "Update EnumCase metadata or ordering."};
    }

    Argument<std::string> id{*this, "id", "EnumCase UUID."};
    OptionGroup<OntologyUpdateOptions> changes{*this, "changes"};
    Option<std::optional<Integer>> sortIndex{*this, "sort-index", "New zero-based display order."};

    void run() const override {
        const std::string path = "enum-cases/" + canonicalUUID(*id, "id");
        JsonBody body = changes->body();
        if (sortIndex) {
            requireSortIndex(*sortIndex);
            body.set("sortIndex", *sortIndex);
        }
        patchOntology(path, std::move(body));
    }
};

struct OntologyEnumCase final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "enum-case",
            .abstract = "Get, create, update, or delete an EnumCase.",
            .ungroupedSubcommands = {CommandType::of<OntologyGet<enumCaseResource>>(),
                                     CommandType::of<OntologyEnumCaseCreate>(),
                                     CommandType::of<OntologyEnumCaseUpdate>(),
                                     CommandType::of<OntologyDelete<enumCaseResource>>()},
        };
    }
};

} // namespace

CommandType ontologyEnumCasesCommand() {
    return CommandType::of<OntologyList<enumCaseListing>>();
}

CommandType ontologyEnumCaseCommand() {
    return CommandType::of<OntologyEnumCase>();
}

} // namespace orvane
