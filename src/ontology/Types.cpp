// `types` and `type`: what Objects are instances of.
#include "core/inputs/Checks.h"
#include "ontology/CommonShapes.h"
#include "ontology/OntologyGroups.h"
#include "ontology/OntologyInputs.h"

namespace orvane {

namespace {

constexpr OntologyResource typeResource{
    .collection = "types",
    .word = "type",
    .idHelp = "Type UUID.",
    .getAbstract = "Get one Type as JSON.",
    .deleteAbstract = "Delete an unused Type.",
};

constexpr OntologyListing typeListing{
    .word = "types",
    .abstract = "List Types declared in a Space as JSON.",
    .parentKey = "space-id",
    .parentHelp = "Space UUID.",
    .parents = "spaces",
    .children = "types",
};

struct OntologyTypeCreate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "create", .abstract = "Create a Type in a Space."};
    }

    Argument<std::string> spaceId{*this, "space-id", "Space UUID."};
    Argument<std::string> name{*this, "name", "Type name."};
    Option<std::optional<std::string>> emoji{*this, "emoji", "Type emoji."};
    Option<std::optional<std::string>> description{*this, "description", "What one Object of this Type represents."};
    Option<std::optional<std::string>> inheritsFromTypeId{*this, "inherits-from-type-id",
                                                          "Parent Type UUID for single inheritance."};

    void run() const override {
        const std::string path = "spaces/" + canonicalUUID(*spaceId, "space-id") + "/types";
        JsonBody body = ontologyCreationBody(name, emoji, description);
        if (inheritsFromTypeId) {
            body.set("inheritsFromTypeId", canonicalUUID(*inheritsFromTypeId, "inherits-from-type-id"));
        }
        postOntology(path, std::move(body));
    }
};

struct OntologyTypeUpdate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "update", .abstract = "Update Type metadata, inheritance, or display Field."};
    }

    Argument<std::string> id{*this, "id", "Type UUID."};
    OptionGroup<OntologyUpdateOptions> changes{*this, "changes"};
    Option<std::optional<std::string>> inheritsFromTypeId{*this, "inherits-from-type-id", "New parent Type UUID."};
    Flag<bool> clearInheritance{*this, "clear-inheritance", "Remove inheritance."};
    Option<std::optional<std::string>> displayFieldId{*this, "display-field-id", "Field UUID used to display Objects."};
    Flag<bool> clearDisplayField{*this, "clear-display-field", "Clear the display Field."};

    void validate() const override {
        validateAtMostOne({inheritsFromTypeId, clearInheritance},
                          "Use either --inherits-from-type-id or --clear-inheritance, not both.");
        validateAtMostOne({displayFieldId, clearDisplayField},
                          "Use either --display-field-id or --clear-display-field, not both.");
    }

    void run() const override {
        const std::string path = "types/" + canonicalUUID(*id, "id");
        JsonBody body = changes->body();
        applyClearableUUID(inheritsFromTypeId, clearInheritance, "inheritsFromTypeId", "inherits-from-type-id", body);
        applyClearableUUID(displayFieldId, clearDisplayField, "displayFieldId", "display-field-id", body);
        patchOntology(path, std::move(body));
    }
};

struct OntologyType final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "type",
            .abstract = "Get, create, update, or delete a Type.",
            .ungroupedSubcommands = {CommandType::of<OntologyGet<typeResource>>(),
                                     CommandType::of<OntologyTypeCreate>(), CommandType::of<OntologyTypeUpdate>(),
                                     CommandType::of<OntologyDelete<typeResource>>()},
        };
    }
};

} // namespace

CommandType ontologyTypesCommand() {
    return CommandType::of<OntologyList<typeListing>>();
}

CommandType ontologyTypeCommand() {
    return CommandType::of<OntologyType>();
}

} // namespace orvane
