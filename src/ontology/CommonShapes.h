// Commands that are the same for every resource but for their words.
#pragma once

#include <string>

#include "core/inputs/Identifiers.h"
#include "ontology/OntologyRequests.h"

namespace orvane {

struct OntologyResource {
    const char* collection; ///< In a path.
    const char* word;       ///< In a report.
    const char* idHelp;
    const char* getAbstract;
    const char* deleteAbstract;
};

template <const OntologyResource& resource>
struct OntologyGet final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "get", .abstract = resource.getAbstract}; }

    Argument<std::string> id{*this, "id", resource.idHelp};

    void run() const override { getOntology(std::string(resource.collection) + "/" + canonicalUUID(*id, "id")); }
};

template <const OntologyResource& resource>
struct OntologyDelete final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "delete", .abstract = resource.deleteAbstract};
    }

    Argument<std::string> id{*this, "id", resource.idHelp};

    void run() const override { deleteOntologyResource(resource.collection, resource.word, canonicalUUID(*id, "id")); }
};

/// A listing of what one parent holds.
struct OntologyListing {
    const char* word;
    const char* abstract;
    const char* parentKey; ///< Of the parent's id, and its label in a refusal.
    const char* parentHelp;
    const char* parents;  ///< In a path.
    const char* children; ///< In a path, behind the parent's id.
};

template <const OntologyListing& listing>
struct OntologyList final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = listing.word, .abstract = listing.abstract}; }

    Argument<std::string> parentId{*this, listing.parentKey, listing.parentHelp};

    void run() const override {
        const std::string parent = canonicalUUID(*parentId, listing.parentKey);
        getOntology(std::string(listing.parents) + "/" + parent + "/" + listing.children);
    }
};

} // namespace orvane
