// `rm`: a context deleted, without asking.
#include "core/inputs/Identifiers.h"
#include "core/output/MutationLine.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct Rm final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "rm", .abstract = "Delete a context by ID."}; }

    Argument<std::string> id{*this, "id", "The UUID of the context."};

    void run() const override {
        requireUUID(*id);
        const std::string path = buildQueryPath("/api/contexts/" + *id, QueryItems().add("cliVerb", "rm"));
        renderObject(serviceDelete(path), [](const platform::JsonObject& deleted) {
            printMutationLine({.verb = "deleted context", .id = deleted.text("contextId")});
        });
    }
};

} // namespace

CommandType rmCommand() {
    return CommandType::of<Rm>();
}

} // namespace orvane
