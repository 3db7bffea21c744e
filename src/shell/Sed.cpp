// `sed`: an exact text of a context replaced by another.
#include "core/inputs/Checks.h"
#include "core/inputs/ContextEdit.h"
#include "core/inputs/Identifiers.h"
#include "core/output/MutationLine.h"
#include "core/service/Answers.h"
#include "shell/ContextEditRequest.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct Sed final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "sed", .abstract = "String-replace edit a context body (exact match)."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the context to edit."};
    Option<std::optional<std::string>> oldText{*this, "old", "The exact text to find."};
    Option<std::optional<FilePath>> oldFile{*this, "old-file",
                                            "Path to a file with the text to find. Mutually exclusive with --old."};
    Option<std::optional<std::string>> newText{*this, "new", "The replacement text."};
    Option<std::optional<FilePath>> newFile{*this, "new-file",
                                            "Path to a file with the replacement text. Mutually exclusive with --new."};
    Flag<bool> all{*this, "all", "Replace all occurrences instead of just the first."};

    void validate() const override {
        validateExactlyOne({oldText, oldFile}, {.none = "Must provide either --old or --old-file.",
                                                .several = "Cannot use both --old and --old-file."});
        validateExactlyOne({newText, newFile}, {.none = "Must provide either --new or --new-file.",
                                                .several = "Cannot use both --new and --new-file."});
    }

    void run() const override {
        requireUUID(*id);
        JsonBody body = contextEditBody({oldText, oldFile}, {newText, newFile}, all);
        renderObject(postContextEdit(*id, std::move(body), "sed"), [](const platform::JsonObject& edit) {
            const bool isEverywhere = edit.boolean("replace_all") == true;
            printMutationLine({.verb = "edited context",
                               .id = edit.text("contextId"),
                               .detail = isEverywhere ? "(all occurrences)" : ""});
        });
    }
};

} // namespace

CommandType sedCommand() {
    return CommandType::of<Sed>();
}

} // namespace orvane
