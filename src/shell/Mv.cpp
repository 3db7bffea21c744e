#include "shell/Mv.h"

#include "core/CLIError.h"
#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "shell/NodeReading.h"

namespace orvane {

namespace {

using platform::JsonObject;

/// The two kinds of node that can be moved, and what the service calls their parts.
struct MovableKind {
    std::string_view kind;
    std::string_view word;
    std::string_view collection;
    std::string_view idKey;          ///< The node's own id in an answer.
    std::string_view destinationKey; ///< The folder it moves to.
    std::string_view unfiledKey;
};

constexpr MovableKind contextKind{"orvane_context", "context", "contexts", "contextId", "folderId", "unfiled"};
constexpr MovableKind folderKind{"orvane_folder", "folder", "folders", "folderId", "parentId", "root"};

/// Asks the service what `id` is. Throws CLIError when it can't be moved.
const MovableKind& movableKindOf(const std::string& id) {
    const ServiceReply reply =
        serviceGet(nodePath(id, QueryItems().add("meta", "true").add("cliVerb", "mv")), standardTimeout);
    failOnErrorStatus(reply);
    const auto document = platform::JsonDocument::parseObject(reply.data);
    const auto kind = document ? document->object().text("kind") : std::nullopt;
    if (!kind) {
        throw CLIError::invalidInput("Could not determine whether " + id + " is a context or folder.");
    }
    if (*kind == contextKind.kind) {
        return contextKind;
    }
    if (*kind == folderKind.kind) {
        return folderKind;
    }
    throw CLIError::invalidInput("Nodes of kind '" + std::string(*kind) + "' cannot be moved or renamed.");
}

} // namespace

CommandConfiguration Mv::configuration() {
    return {.commandName = "mv", .abstract = "Move, rename, or unfile a context or folder."};
}

void Mv::validate() const {
    const int modes = (to ? 1 : 0) + (name ? 1 : 0) + (unfiled ? 1 : 0);
    if (modes != 1) {
        throw ValidationError{"Provide exactly one of --to <folder-id>, --name <new-name>, or --unfiled."};
    }
    if (to && !isUUID(*to)) {
        throw ValidationError{"--to must be a folder UUID."};
    }
}

void Mv::run() const {
    requireUUID(*id);
    const MovableKind& kind = movableKindOf(*id);
    JsonBody body;
    if (name) {
        body.set("name", *name);
    } else if (to) {
        body.set(kind.destinationKey, *to);
    } else {
        body.set(kind.unfiledKey, true);
    }
    const std::string path = "/api/" + std::string(kind.collection) + "/" + *id + (name ? "/rename" : "/move");
    const ServiceReply reply =
        servicePostJSON(buildQueryPath(path, QueryItems().add("cliVerb", "mv")), std::move(body), standardTimeout);
    failOnErrorStatus(reply);
    renderObject(reply.data, [&](const JsonObject& moved) {
        const std::string word(kind.word);
        const auto movedId = moved.text(kind.idKey);
        if (name) {
            printMutationLine("renamed " + word, moved.text("name"), movedId, {});
        } else if (to) {
            const std::string destination(moved.text(kind.destinationKey).value_or(*to));
            printMutationLine("moved " + word, {}, movedId, "→ folder " + destination);
        } else if (kind.kind == contextKind.kind) {
            printMutationLine("unfiled context", {}, movedId, {});
        } else {
            printMutationLine("moved folder", {}, movedId, "→ root");
        }
    });
}

} // namespace orvane
