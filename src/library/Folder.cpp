// `folder`: folders, which hold contexts and other folders.
#include "core/inputs/Checks.h"
#include "core/inputs/HelpTexts.h"
#include "core/inputs/Identifiers.h"
#include "core/service/Answers.h"
#include "library/Library.h"
#include "library/ReadWindow.h"

namespace orvane {

namespace {

struct FolderList final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "list", .abstract = "List all folders."}; }

    Option<Integer> limit{*this, "limit", 100, "Maximum number of results (default: 100, max: 500)."};

    void run() const override {
        requireListLimit(limit);
        passOnGet(buildQueryPath("/api/folders", QueryItems().add("limit", limit)));
    }
};

struct FolderGet final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "get", .abstract = "Get folder details including contexts and child folders."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the folder."};

    void run() const override {
        requireUUID(*id);
        passOnGet("/api/folders/" + *id);
    }
};

struct FolderCreate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "create", .abstract = "Create a new folder."};
    }

    Option<std::string> name{*this, "name", "The folder name."};
    Option<std::optional<std::string>> emoji{*this, "emoji", folderEmojiHelp};

    void run() const override {
        JsonBody body;
        body.set("name", name).setIfGiven("emoji", emoji);
        passOnPostJSON("/api/folders", std::move(body));
    }
};

struct FolderRename final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "rename", .abstract = "Rename a folder."}; }

    Argument<std::string> id{*this, "id", "The UUID of the folder."};
    Option<std::string> name{*this, "name", "The new name."};
    Option<std::optional<std::string>> emoji{*this, "emoji", folderEmojiHelp};

    void run() const override {
        requireUUID(*id);
        JsonBody body;
        body.set("name", name).setIfGiven("emoji", emoji);
        passOnPostJSON("/api/folders/" + *id + "/rename", std::move(body));
    }
};

struct FolderMove final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "move", .abstract = "Move a folder into another folder, or to the top level."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the folder to move."};
    Option<std::optional<std::string>> to{*this, "to", "Destination parent folder UUID."};
    Flag<bool> toRoot{*this, "to-root", "Move the folder to the top level (no parent)."};

    void validate() const override {
        validateExactlyOne({to, toRoot}, "Provide exactly one of --to <parent-folder-id> or --to-root.");
        validateUUIDIfGiven(to, "--to", "a folder UUID");
    }

    void run() const override {
        requireUUID(*id);
        JsonBody body;
        if (to) {
            body.set("parentId", *to);
        } else {
            body.set("root", true);
        }
        passOnPostJSON("/api/folders/" + *id + "/move", std::move(body));
    }
};

struct FolderDelete final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "delete", .abstract = "Delete an empty folder."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the folder."};

    void run() const override {
        requireUUID(*id);
        passOnDelete("/api/folders/" + *id);
    }
};

struct Folder final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "folder",
            .abstract = "Manage folders.",
            .ungroupedSubcommands = {CommandType::of<FolderList>(), CommandType::of<FolderGet>(),
                                     CommandType::of<FolderCreate>(), CommandType::of<FolderRename>(),
                                     CommandType::of<FolderMove>(), CommandType::of<FolderDelete>()},
            .defaultSubcommand = CommandType::of<FolderList>(),
        };
    }
};

} // namespace

CommandType folderCommand() {
    return CommandType::of<Folder>();
}

} // namespace orvane
