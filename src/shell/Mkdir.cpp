#include "shell/Mkdir.h"

#include "core/Identifiers.h"
#include "core/Query.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"

namespace orvane {

CommandConfiguration Mkdir::configuration() {
    return {.commandName = "mkdir",
            .abstract = "Create a folder. Pass a parent folder ID to nest it; omit for top level."};
}

void Mkdir::validate() const {
    if (parent && !isUUID(*parent)) {
        throw ValidationError{"parent must be a UUID."};
    }
}

void Mkdir::run() const {
    JsonBody body;
    body.set("name", *name).setIfGiven("parentId", parent.get()).setIfGiven("emoji", emoji.get());
    const std::string path = buildQueryPath("/api/folders", QueryItems().add("cliVerb", "mkdir"));
    const ServiceReply reply = servicePostJSON(path, std::move(body), standardTimeout);
    failOnErrorStatus(reply);
    renderObject(reply.data, [](const platform::JsonObject& folder) {
        printMutationLine("created folder", folder.text("name"), folder.text("id"), {});
    });
}

} // namespace orvane
