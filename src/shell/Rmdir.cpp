// `rmdir`: an empty folder deleted, without asking.
#include "core/inputs/Identifiers.h"
#include "core/output/MutationLine.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct Rmdir final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "rmdir", .abstract = "Delete an empty folder by ID."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the folder."};

    void run() const override {
        requireUUID(*id);
        const std::string path = buildQueryPath("/api/folders/" + *id, QueryItems().add("cliVerb", "rmdir"));
        renderObject(serviceDelete(path), [](const platform::JsonObject& deleted) {
            printMutationLine({.verb = "deleted folder", .id = deleted.text("folderId")});
        });
    }
};

} // namespace

CommandType rmdirCommand() {
    return CommandType::of<Rmdir>();
}

} // namespace orvane
