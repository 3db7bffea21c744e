#include "shell/Sed.h"

#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "core/TextInput.h"
#include "shell/ContextEditing.h"

namespace orvane {

CommandConfiguration Sed::configuration() {
    return {.commandName = "sed", .abstract = "String-replace edit a context body (exact match)."};
}

void Sed::validate() const {
    if (oldText && oldFile) {
        throw ValidationError{"Cannot use both --old and --old-file."};
    }
    if (!oldText && !oldFile) {
        throw ValidationError{"Must provide either --old or --old-file."};
    }
    if (newText && newFile) {
        throw ValidationError{"Cannot use both --new and --new-file."};
    }
    if (!newText && !newFile) {
        throw ValidationError{"Must provide either --new or --new-file."};
    }
}

void Sed::run() const {
    requireUUID(*id);
    JsonBody body;
    body.set("old_string", oldFile ? readTextFile(*oldFile) : *oldText);
    body.set("new_string", newFile ? readTextFile(*newFile) : *newText);
    if (all) {
        body.set("replace_all", true);
    }
    const ServiceReply reply = postContextEdit(*id, std::move(body), "sed");
    renderObject(reply.data, [](const platform::JsonObject& edit) {
        const bool isEverywhere = edit.boolean("replace_all") == true;
        printMutationLine("edited context", {}, edit.text("contextId"), isEverywhere ? "(all occurrences)" : "");
    });
}

} // namespace orvane
