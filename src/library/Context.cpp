#include "library/Context.h"

#include "core/CLIError.h"
#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "core/TextInput.h"

namespace orvane {

namespace {

void requireFolderUUID(const std::string& folder) {
    if (!isUUID(folder)) {
        throw CLIError::invalidInput("Invalid folder UUID: " + folder);
    }
}

} // namespace

CommandConfiguration Context::configuration() {
    return {
        .abstract = "Manage contexts.",
        .ungroupedSubcommands = {CommandType::of<ContextList>(), CommandType::of<ContextGet>(),
                                 CommandType::of<ContextCreate>(), CommandType::of<ContextEdit>(),
                                 CommandType::of<ContextMove>(), CommandType::of<ContextRename>(),
                                 CommandType::of<ContextDelete>()},
        .defaultSubcommand = CommandType::of<ContextList>(),
    };
}

CommandConfiguration ContextList::configuration() {
    return {.commandName = "list", .abstract = "List all contexts with folder membership."};
}

void ContextList::run() const {
    requireListLimit(limit);
    printReply(serviceGet(buildQueryPath("/api/contexts", QueryItems().add("limit", limit)), standardTimeout));
}

CommandConfiguration ContextGet::configuration() {
    return {.commandName = "get", .abstract = "Get the content of a context by ID, with optional pagination."};
}

void ContextGet::run() const {
    requireUUID(*id);
    printReply(serviceGet(buildQueryPath("/api/contexts/" + *id, chunkPageItems(*page)), standardTimeout));
}

CommandConfiguration ContextCreate::configuration() {
    return {.commandName = "create", .abstract = "Create a new context."};
}

void ContextCreate::validate() const {
    if (body && bodyFile) {
        throw ValidationError{"Cannot use both --body and --body-file."};
    }
    for (const std::string& source : *sources) {
        if (!isUUID(source)) {
            throw ValidationError{"Invalid source UUID: " + source};
        }
    }
}

void ContextCreate::run() const {
    if (folder) {
        requireFolderUUID(*folder);
    }
    JsonBody context;
    context.set("title", *title)
        .set("markdown", bodyFile ? readTextFile(*bodyFile) : body.get().value_or(""))
        .setIfGiven("emoji", emoji.get())
        .setIfGiven("folderId", folder.get())
        .setIfNotEmpty("sources", *sources);
    printReply(servicePostJSON("/api/contexts", std::move(context), standardTimeout));
}

CommandConfiguration ContextEdit::configuration() {
    return {.commandName = "edit", .abstract = "Edit a context's markdown body using string replacement."};
}

void ContextEdit::validate() const {
    if (oldString && oldStringFile) {
        throw ValidationError{"Cannot use both --old-string and --old-string-file."};
    }
    if (!oldString && !oldStringFile) {
        throw ValidationError{"Must provide either --old-string or --old-string-file."};
    }
    if (newString && newStringFile) {
        throw ValidationError{"Cannot use both --new-string and --new-string-file."};
    }
    if (!newString && !newStringFile) {
        throw ValidationError{"Must provide either --new-string or --new-string-file."};
    }
}

void ContextEdit::run() const {
    requireUUID(*id);
    JsonBody edit;
    edit.set("old_string", oldStringFile ? readTextFile(*oldStringFile) : *oldString);
    edit.set("new_string", newStringFile ? readTextFile(*newStringFile) : *newString);
    if (replaceAll) {
        edit.set("replace_all", true);
    }
    printReply(servicePostJSON("/api/contexts/" + *id + "/edit", std::move(edit), standardTimeout));
}

CommandConfiguration ContextMove::configuration() {
    return {.commandName = "move", .abstract = "Move a context to a folder, or unfiled."};
}

void ContextMove::validate() const {
    if (!to && !unfiled) {
        throw ValidationError{"Provide either --to <folder-id> or --unfiled."};
    }
    if (to && unfiled) {
        throw ValidationError{"Cannot use both --to and --unfiled."};
    }
}

void ContextMove::run() const {
    requireUUID(*id);
    JsonBody body;
    if (to) {
        requireFolderUUID(*to);
        body.set("folderId", *to);
    } else {
        body.set("unfiled", true);
    }
    printReply(servicePostJSON("/api/contexts/" + *id + "/move", std::move(body), standardTimeout));
}

CommandConfiguration ContextRename::configuration() {
    return {.commandName = "rename", .abstract = "Rename a context."};
}

void ContextRename::run() const {
    requireUUID(*id);
    JsonBody body;
    body.set("name", *name);
    printReply(servicePostJSON("/api/contexts/" + *id + "/rename", std::move(body), standardTimeout));
}

CommandConfiguration ContextDelete::configuration() {
    return {.commandName = "delete", .abstract = "Delete a context by ID."};
}

void ContextDelete::run() const {
    requireUUID(*id);
    printRawResponse(serviceDelete("/api/contexts/" + *id, standardTimeout));
}

} // namespace orvane
