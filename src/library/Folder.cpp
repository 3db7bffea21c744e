#include "library/Folder.h"

#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "library/Paging.h"

namespace orvane {

CommandConfiguration Folder::configuration() {
    return {
        .abstract = "Manage folders.",
        .ungroupedSubcommands = {CommandType::of<FolderList>(), CommandType::of<FolderGet>(),
                                 CommandType::of<FolderCreate>(), CommandType::of<FolderRename>(),
                                 CommandType::of<FolderMove>(), CommandType::of<FolderDelete>()},
        .defaultSubcommand = CommandType::of<FolderList>(),
    };
}

CommandConfiguration FolderList::configuration() {
    return {.commandName = "list", .abstract = "List all folders."};
}

void FolderList::run() const {
    requireListLimit(limit);
    printReply(serviceGet(buildQueryPath("/api/folders", QueryItems().add("limit", limit)), standardTimeout));
}

CommandConfiguration FolderGet::configuration() {
    return {.commandName = "get", .abstract = "Get folder details including contexts and child folders."};
}

void FolderGet::run() const {
    requireUUID(*id);
    printReply(serviceGet("/api/folders/" + *id, standardTimeout));
}

CommandConfiguration FolderCreate::configuration() {
    return {.commandName = "create", .abstract = "Create a new folder."};
}

void FolderCreate::run() const {
    JsonBody body;
    body.set("name", *name).setIfGiven("emoji", emoji.get());
    printReply(servicePostJSON("/api/folders", std::move(body), standardTimeout));
}

CommandConfiguration FolderRename::configuration() {
    return {.commandName = "rename", .abstract = "Rename a folder."};
}

void FolderRename::run() const {
    requireUUID(*id);
    JsonBody body;
    body.set("name", *name).setIfGiven("emoji", emoji.get());
    printReply(servicePostJSON("/api/folders/" + *id + "/rename", std::move(body), standardTimeout));
}

CommandConfiguration FolderMove::configuration() {
    return {.commandName = "move", .abstract = "Move a folder into another folder, or to the top level."};
}

void FolderMove::validate() const {
    if (to.get().has_value() == toRoot) {
        throw ValidationError{"Provide exactly one of --to <parent-folder-id> or --to-root."};
    }
    if (to && !isUUID(*to)) {
        throw ValidationError{"--to must be a folder UUID."};
    }
}

void FolderMove::run() const {
    requireUUID(*id);
    JsonBody body;
    if (to) {
        body.set("parentId", *to);
    } else {
        body.set("root", true);
    }
    printReply(servicePostJSON("/api/folders/" + *id + "/move", std::move(body), standardTimeout));
}

CommandConfiguration FolderDelete::configuration() {
    return {.commandName = "delete", .abstract = "Delete an empty folder."};
}

void FolderDelete::run() const {
    requireUUID(*id);
    printRawResponse(serviceDelete("/api/folders/" + *id, standardTimeout));
}

} // namespace orvane
