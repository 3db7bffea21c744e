// `context`: the Markdown documents that the user keeps in the library.
#include "core/inputs/Checks.h"
#include "core/inputs/ContextEdit.h"
#include "core/inputs/HelpTexts.h"
#include "core/inputs/Identifiers.h"
#include "core/service/Answers.h"
#include "library/Library.h"
#include "library/ReadWindow.h"

namespace orvane {

namespace {

constexpr std::string_view folderUUID = "folder UUID";

struct ContextList final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "list", .abstract = "List all contexts with folder membership."};
    }

    Option<Integer> limit{*this, "limit", 100, "Maximum number of results (default: 100, max: 500)."};

    void run() const override {
        requireListLimit(limit);
        passOnGet(buildQueryPath("/api/contexts", QueryItems().add("limit", limit)));
    }
};

struct ContextGet final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "get", .abstract = "Get the content of a context by ID, with optional pagination."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the context."};
    OptionGroup<ChunkPageOptions> page{*this, "page"};

    void run() const override {
        requireUUID(*id);
        passOnGet(buildQueryPath("/api/contexts/" + *id, page->items()));
    }
};

struct ContextCreate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "create", .abstract = "Create a new context."};
    }

    Option<std::string> title{*this, "title", "The title of the context."};
    Option<std::optional<std::string>> body{*this, "body", "The markdown body of the context."};
    Option<std::optional<FilePath>> bodyFile{
        *this, "body-file", "Path to a file containing the markdown body. Mutually exclusive with --body."};
    Option<std::optional<std::string>> emoji{*this, "emoji", contextEmojiHelp};
    Option<std::optional<std::string>> folder{*this, "folder", contextFolderHelp};
    Option<std::vector<std::string>> sources{
        *this,
        "sources",
        std::vector<std::string>(),
        "Source document UUIDs for provenance tracking (e.g. transcript or context IDs that informed this context).",
        {.parsing = ParsingStrategy::upToNextOption}};

    void validate() const override {
        validateAtMostOne({body, bodyFile}, "Cannot use both --body and --body-file.");
        validateSources(*sources);
    }

    void run() const override {
        if (folder) {
            requireUUID(*folder, folderUUID);
        }
        JsonBody context;
        context.set("title", title)
            .set("markdown", body || bodyFile ? TextOrFile{body, bodyFile}.read() : std::string())
            .setIfGiven("emoji", emoji)
            .setIfGiven("folderId", folder)
            .setIfGiven("sources", sources);
        passOnPostJSON("/api/contexts", std::move(context));
    }
};

struct ContextEdit final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "edit", .abstract = "Edit a context's markdown body using string replacement."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the context to edit."};
    Option<std::optional<std::string>> oldString{*this, "old-string", "The exact text to find in the context body."};
    Option<std::optional<FilePath>> oldStringFile{
        *this, "old-string-file",
        "Path to a file containing the text to find. Mutually exclusive with --old-string. A single trailing newline "
        "is stripped."};
    Option<std::optional<std::string>> newString{*this, "new-string", "The text to replace it with."};
    Option<std::optional<FilePath>> newStringFile{
        *this, "new-string-file",
        "Path to a file containing the replacement text. Mutually exclusive with --new-string. A single trailing "
        "newline is stripped."};
    Flag<bool> replaceAll{*this, "replace-all", "Replace all occurrences instead of just the first."};

    void validate() const override {
        validateExactlyOne({oldString, oldStringFile},
                           {.none = "Must provide either --old-string or --old-string-file.",
                            .several = "Cannot use both --old-string and --old-string-file."});
        validateExactlyOne({newString, newStringFile},
                           {.none = "Must provide either --new-string or --new-string-file.",
                            .several = "Cannot use both --new-string and --new-string-file."});
    }

    void run() const override {
        requireUUID(*id);
        passOnPostJSON("/api/contexts/" + *id + "/edit",
                       contextEditBody({oldString, oldStringFile}, {newString, newStringFile}, replaceAll));
    }
};

struct ContextMove final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "move", .abstract = "Move a context to a folder, or unfiled."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the context to move."};
    Option<std::optional<std::string>> to{*this, "to", "The UUID of the destination folder."};
    Flag<bool> unfiled{*this, "unfiled", "Remove the context from its folder."};

    void validate() const override {
        validateExactlyOne({to, unfiled}, {.none = "Provide either --to <folder-id> or --unfiled.",
                                           .several = "Cannot use both --to and --unfiled."});
    }

    void run() const override {
        requireUUID(*id);
        JsonBody body;
        if (to) {
            requireUUID(*to, folderUUID);
            body.set("folderId", *to);
        } else {
            body.set("unfiled", true);
        }
        passOnPostJSON("/api/contexts/" + *id + "/move", std::move(body));
    }
};

struct ContextRename final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "rename", .abstract = "Rename a context."}; }

    Argument<std::string> id{*this, "id", "The UUID of the context."};
    Option<std::string> name{*this, "name", "The new name."};

    void run() const override {
        requireUUID(*id);
        JsonBody body;
        body.set("name", name);
        passOnPostJSON("/api/contexts/" + *id + "/rename", std::move(body));
    }
};

struct ContextDelete final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "delete", .abstract = "Delete a context by ID."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the context."};

    void run() const override {
        requireUUID(*id);
        passOnDelete("/api/contexts/" + *id);
    }
};

struct Context final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "context",
            .abstract = "Manage contexts.",
            .ungroupedSubcommands = {CommandType::of<ContextList>(), CommandType::of<ContextGet>(),
                                     CommandType::of<ContextCreate>(), CommandType::of<ContextEdit>(),
                                     CommandType::of<ContextMove>(), CommandType::of<ContextRename>(),
                                     CommandType::of<ContextDelete>()},
            .defaultSubcommand = CommandType::of<ContextList>(),
        };
    }
};

} // namespace

CommandType contextCommand() {
    return CommandType::of<Context>();
}

} // namespace orvane
