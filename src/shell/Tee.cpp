#include "shell/Tee.h"

#include "core/Identifiers.h"
#include "core/Query.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "core/TextInput.h"

namespace orvane {

CommandConfiguration Tee::configuration() {
    return {.commandName = "tee", .abstract = "Create a context. Body is read from stdin, or from --from-file."};
}

void Tee::validate() const {
    if (folder && !isUUID(*folder)) {
        throw ValidationError{"folder must be a UUID."};
    }
    for (const std::string& source : *sources) {
        if (!isUUID(source)) {
            throw ValidationError{"Invalid source UUID: " + source};
        }
    }
}

void Tee::run() const {
    const std::string markdown = fromFile ? readTextFile(*fromFile) : readPipedText().value_or("");
    JsonBody body;
    body.set("title", *title)
        .set("markdown", markdown)
        .setIfGiven("emoji", emoji.get())
        .setIfGiven("folderId", folder.get())
        .setIfNotEmpty("sources", *sources);
    const std::string path = buildQueryPath("/api/contexts", QueryItems().add("cliVerb", "tee"));
    const ServiceReply reply = servicePostJSON(path, std::move(body), standardTimeout);
    failOnErrorStatus(reply);
    renderObject(reply.data, [](const platform::JsonObject& context) {
        const bool isPending = context.boolean("cloudSyncPending") == true;
        printMutationLine("created context", context.text("name"), context.text("id"),
                          isPending ? "still preparing for collaborative editing; it may take a few minutes to become "
                                      "available"
                                    : "");
    });
}

} // namespace orvane
