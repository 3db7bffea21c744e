// `objects` and `object`: instances of one concrete Type.
#include "core/inputs/Checks.h"
#include "ontology/CommonShapes.h"
#include "ontology/OntologyGroups.h"
#include "ontology/OntologyInputs.h"

namespace orvane {

namespace {

constexpr OntologyResource objectResource{
    .collection = "objects",
    .word = "object",
    .idHelp = "Object UUID.",
    .getAbstract = "Get one Object.",
    .deleteAbstract = "Delete an Object with no Assertions or active references.",
};

struct OntologyObjects final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "objects", .abstract = "List Objects in exactly one Space or Type."};
    }

    Option<std::optional<std::string>> spaceId{*this, "space-id", "Space UUID whose Objects should be listed."};
    Option<std::optional<std::string>> typeId{*this, "type-id", "Type UUID whose Objects should be listed."};
    OptionGroup<OntologyPageOptions> page{*this, "page"};

    void validate() const override {
        validateExactlyOne({spaceId, typeId}, "Provide exactly one of --space-id or --type-id.");
    }

    void run() const override {
        const std::string owner =
            spaceId ? "spaces/" + canonicalUUID(*spaceId, "space-id") : "types/" + canonicalUUID(*typeId, "type-id");
        getOntology(owner + "/objects", page->queryItems());
    }
};

struct OntologyObjectCreate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "create", .abstract = "Create an empty Object of one concrete Type."};
    }

    Argument<std::string> spaceId{*this, "space-id", "Space UUID."};
    Argument<std::string> typeId{*this, "type-id", "Concrete Type UUID."};

    void run() const override {
        const std::string path = "spaces/" + canonicalUUID(*spaceId, "space-id") + "/objects";
        JsonBody body;
        body.set("typeId", canonicalUUID(*typeId, "type-id"));
        postOntology(path, std::move(body));
    }
};

struct OntologyObjectUpdate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "update", .abstract = "Change an Object's concrete Type."};
    }

    Argument<std::string> id{*this, "id", "Object UUID."};
    Option<std::string> typeId{*this, "type-id", "New concrete Type UUID."};

    void run() const override {
        const std::string path = "objects/" + canonicalUUID(*id, "id");
        JsonBody body;
        body.set("typeId", canonicalUUID(*typeId, "type-id"));
        patchOntology(path, std::move(body));
    }
};

struct OntologyObject final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "object",
            .abstract = "Get, create, change the Type of, or delete an Object.",
            .ungroupedSubcommands = {CommandType::of<OntologyGet<objectResource>>(),
                                     CommandType::of<OntologyObjectCreate>(), CommandType::of<OntologyObjectUpdate>(),
                                     CommandType::of<OntologyDelete<objectResource>>()},
        };
    }
};

} // namespace

CommandType ontologyObjectsCommand() {
    return CommandType::of<OntologyObjects>();
}

CommandType ontologyObjectCommand() {
    return CommandType::of<OntologyObject>();
}

} // namespace orvane
