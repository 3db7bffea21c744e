// `mv`: a context or folder moved, renamed or taken out of its folder.
#include "core/inputs/Checks.h"
#include "core/inputs/Identifiers.h"
#include "core/output/MutationLine.h"
#include "core/output/SingleLine.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "shell/Shell.h"

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
    const QueryItems items = QueryItems().add("meta", "true").add("cliVerb", "mv");
    const ServiceReply reply = serviceGet(buildQueryPath("/api/nodes/" + id, items));
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
    throw CLIError::invalidInput("Nodes of kind '" + foldedLine(*kind) + "' cannot be moved or renamed.");
}

struct Mv final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "mv", .abstract = "Move, rename, or unfile a context or folder."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the context or folder."};
    Option<std::optional<std::string>> to{*this, "to", "Destination folder UUID (move)."};
    Option<std::optional<std::string>> name{*this, "name", "New name (rename)."};
    Flag<bool> unfiled{*this, "unfiled", "Remove the context or folder from its parent."};

    void validate() const override {
        validateExactlyOne({to, name, unfiled},
                           "Provide exactly one of --to <folder-id>, --name <new-name>, or --unfiled.");
        validateUUIDIfGiven(to, "--to", "a folder UUID");
    }

    void run() const override {
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
        renderObject(servicePostJSON(buildQueryPath(path, QueryItems().add("cliVerb", "mv")), std::move(body)),
                     [&](const JsonObject& moved) { report(kind, moved); });
    }

private:
    void report(const MovableKind& kind, const JsonObject& moved) const {
        const std::string word(kind.word);
        const auto movedId = moved.text(kind.idKey);
        if (name) {
            printMutationLine({.verb = "renamed " + word, .name = moved.text("name"), .id = movedId});
        } else if (to) {
            const std::string destination(moved.text(kind.destinationKey).value_or(*to));
            printMutationLine({.verb = "moved " + word, .id = movedId, .detail = "→ folder " + destination});
        } else if (kind.kind == contextKind.kind) {
            printMutationLine({.verb = "unfiled context", .id = movedId});
        } else {
            printMutationLine({.verb = "moved folder", .id = movedId, .detail = "→ root"});
        }
    }
};

} // namespace

CommandType mvCommand() {
    return CommandType::of<Mv>();
}

} // namespace orvane
