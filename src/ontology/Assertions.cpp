// `assertions` and `assertion`: immutable statements about an Object, each supported by nodes of the library.
#include "core/inputs/Checks.h"
#include "ontology/CommonShapes.h"
#include "ontology/Drafts.h"
#include "ontology/OntologyGroups.h"
#include "ontology/OntologyInputs.h"

namespace orvane {

namespace {

constexpr OntologyResource assertionResource{
    .collection = "assertions",
    .word = "assertion",
    .idHelp = "Assertion UUID.",
    .getAbstract = "Get one Assertion.",
    .deleteAbstract = "Delete an Assertion; corrections require a replacement.",
};

struct OntologyAssertions final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "assertions", .abstract = "List Assertions directly contained by an Object."};
    }

    Argument<std::string> objectId{*this, "object-id", "Object UUID."};
    OptionGroup<OntologyPageOptions> page{*this, "page"};

    void run() const override {
        getOntology("objects/" + canonicalUUID(*objectId, "object-id") + "/assertions", page->queryItems());
    }
};

struct OntologyAssertionCreate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "create", .abstract = "Create an immutable Assertion from an exact V2 JSON draft."};
    }

    Option<std::optional<std::string>> objectId{*this, "object-id", "Object UUID for a top-level Assertion."};
    Option<std::optional<std::string>> parentAssertionId{*this, "parent-assertion-id",
                                                         "Compound Assertion UUID for a nested child."};
    Option<FilePath> fromFile{*this, "from-file", "JSON draft path, or '-' for stdin."};

    void validate() const override {
        validateExactlyOne({objectId, parentAssertionId},
                           "Provide exactly one of --object-id or --parent-assertion-id.");
    }

    void run() const override {
        const std::string path =
            objectId ? "objects/" + canonicalUUID(*objectId, "object-id") + "/assertions"
                     : "assertions/" + canonicalUUID(*parentAssertionId, "parent-assertion-id") + "/children";
        postOntology(path, readOntologyJSONObject(*fromFile, "Assertion draft").json);
    }
};

struct OntologyAssertionUpdate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "update", .abstract = "Replace an immutable Assertion with a new JSON draft."};
    }

    Argument<std::string> id{*this, "id", "Assertion UUID to replace."};
    Option<FilePath> fromFile{*this, "from-file", "Replacement JSON draft path, or '-' for stdin."};

    void run() const override {
        const std::string path = "assertions/" + canonicalUUID(*id, "id") + "/replace";
        postOntology(path, readOntologyJSONObject(*fromFile, "Replacement Assertion draft").json);
    }
};

struct OntologyAssertionChildren final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "children", .abstract = "List child Assertions of a compound Assertion."};
    }

    Argument<std::string> assertionId{*this, "assertion-id", "Compound Assertion UUID."};
    OptionGroup<OntologyPageOptions> page{*this, "page"};

    void run() const override {
        getOntology("assertions/" + canonicalUUID(*assertionId, "assertion-id") + "/children", page->queryItems());
    }
};

struct OntologyAssertionAddSupport final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "add-support", .abstract = "Attach a supporting graph Node to an Assertion."};
    }

    Argument<std::string> assertionId{*this, "assertion-id", "Assertion UUID."};
    Argument<std::string> nodeId{*this, "node-id", "Supporting graph Node UUID."};

    void run() const override {
        const std::string path = "assertions/" + canonicalUUID(*assertionId, "assertion-id") + "/supports";
        JsonBody body;
        body.set("nodeId", canonicalUUID(*nodeId, "node-id"));
        postOntology(path, std::move(body));
    }
};

struct OntologyAssertionRemoveSupport final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "remove-support", .abstract = "Detach a supporting graph Node from an Assertion."};
    }

    Argument<std::string> assertionId{*this, "assertion-id", "Assertion UUID."};
    Argument<std::string> nodeId{*this, "node-id", "Supporting graph Node UUID."};

    void run() const override {
        const std::string path = "assertions/" + canonicalUUID(*assertionId, "assertion-id") + "/supports/";
        deleteOntology(path + canonicalUUID(*nodeId, "node-id"));
    }
};

struct OntologyAssertion final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "assertion",
            .abstract = "Get, create, inspect, support, or delete immutable Assertions.",
            .ungroupedSubcommands = {CommandType::of<OntologyGet<assertionResource>>(),
                                     CommandType::of<OntologyAssertionCreate>(),
                                     CommandType::of<OntologyAssertionUpdate>(),
                                     CommandType::of<OntologyAssertionChildren>(),
                                     CommandType::of<OntologyAssertionAddSupport>(),
                                     CommandType::of<OntologyAssertionRemoveSupport>(),
                                     CommandType::of<OntologyDelete<assertionResource>>()},
        };
    }
};

} // namespace

CommandType ontologyAssertionsCommand() {
    return CommandType::of<OntologyAssertions>();
}

CommandType ontologyAssertionCommand() {
    return CommandType::of<OntologyAssertion>();
}

} // namespace orvane
