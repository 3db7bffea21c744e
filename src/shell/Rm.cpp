#include "shell/Rm.h"

#include "core/Identifiers.h"
#include "core/Query.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"

namespace orvane {

CommandConfiguration Rm::configuration() {
    return {.commandName = "rm", .abstract = "Delete a context by ID."};
}

void Rm::run() const {
    requireUUID(*id);
    const std::string path = buildQueryPath("/api/contexts/" + *id, QueryItems().add("cliVerb", "rm"));
    renderObject(serviceDelete(path, standardTimeout), [](const platform::JsonObject& deleted) {
        printMutationLine("deleted context", {}, deleted.text("contextId"), {});
    });
}

CommandConfiguration Rmdir::configuration() {
    return {.commandName = "rmdir", .abstract = "Delete an empty folder by ID."};
}

void Rmdir::run() const {
    requireUUID(*id);
    const std::string path = buildQueryPath("/api/folders/" + *id, QueryItems().add("cliVerb", "rmdir"));
    renderObject(serviceDelete(path, standardTimeout), [](const platform::JsonObject& deleted) {
        printMutationLine("deleted folder", {}, deleted.text("folderId"), {});
    });
}

} // namespace orvane
