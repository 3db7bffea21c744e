// `mkdir`: a new folder.
#include "core/inputs/HelpTexts.h"
#include "core/inputs/Identifiers.h"
#include "core/output/MutationLine.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct Mkdir final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "mkdir",
                .abstract = "Create a folder. Pass a parent folder ID to nest it; omit for top level."};
    }

    Argument<std::string> name{*this, "name", "The folder name."};
    Argument<std::optional<std::string>> parent{*this, "parent",
                                                "Optional parent folder ID. Omit to create at the top level."};
    Option<std::optional<std::string>> emoji{*this, "emoji", folderEmojiHelp};

    void validate() const override { validateUUIDIfGiven(parent, "parent"); }

    void run() const override {
        JsonBody body;
        body.set("name", name).setIfGiven("parentId", parent).setIfGiven("emoji", emoji);
        const std::string path = buildQueryPath("/api/folders", QueryItems().add("cliVerb", "mkdir"));
        renderObject(servicePostJSON(path, std::move(body)), [](const platform::JsonObject& folder) {
            printMutationLine({.verb = "created folder", .name = folder.text("name"), .id = folder.text("id")});
        });
    }
};

} // namespace

CommandType mkdirCommand() {
    return CommandType::of<Mkdir>();
}

} // namespace orvane
