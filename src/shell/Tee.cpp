// `tee`: a new context, whose body comes from a pipe or a file.
#include "core/inputs/HelpTexts.h"
#include "core/inputs/Identifiers.h"
#include "core/inputs/TextInput.h"
#include "core/output/MutationLine.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "platform/files/Streams.h"
#include "platform/text/Text.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

/// What was piped in. The context is created even when that can't be its body, and the user is told.
std::string pipedMarkdown() {
    std::optional<std::string> bytes = readPipedBytes();
    if (bytes && !platform::isValidUtf8(*bytes)) {
        platform::writeStandardError("orvane tee: standard input is not valid UTF-8; the body was left empty.\n");
        bytes.reset();
    }
    return std::move(bytes).value_or("");
}

struct Tee final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "tee", .abstract = "Create a context. Body is read from stdin, or from --from-file."};
    }

    Argument<std::string> title{*this, "title", "The title of the context."};
    Option<std::optional<FilePath>> fromFile{*this, "from-file",
                                             "Path to a file containing the markdown body. Overrides stdin."};
    Option<std::optional<std::string>> emoji{*this, "emoji", contextEmojiHelp};
    Option<std::optional<std::string>> folder{*this, "folder", contextFolderHelp};
    Option<std::vector<std::string>> sources{*this,
                                             "sources",
                                             {},
                                             "Source document UUIDs for provenance tracking.",
                                             {.parsing = ParsingStrategy::upToNextOption}};

    void validate() const override {
        validateUUIDIfGiven(folder, "folder");
        validateSources(*sources);
    }

    void run() const override {
        JsonBody body;
        body.set("title", title)
            .set("markdown", fromFile ? readTextFile(*fromFile) : pipedMarkdown())
            .setIfGiven("emoji", emoji)
            .setIfGiven("folderId", folder)
            .setIfGiven("sources", sources);
        const std::string path = buildQueryPath("/api/contexts", QueryItems().add("cliVerb", "tee"));
        renderObject(servicePostJSON(path, std::move(body)), [](const platform::JsonObject& context) {
            const bool isPending = context.boolean("cloudSyncPending") == true;
            printMutationLine({.verb = "created context",
                               .name = context.text("name"),
                               .id = context.text("id"),
                               .detail = isPending ? "still preparing for collaborative editing; it may take a few "
                                                     "minutes to become available"
                                                   : ""});
        });
    }
};

} // namespace

CommandType teeCommand() {
    return CommandType::of<Tee>();
}

} // namespace orvane
