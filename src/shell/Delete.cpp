// `delete`: a transcript chat deleted, after a preview and a yes from a person.
#include "core/inputs/Confirmation.h"
#include "core/inputs/Identifiers.h"
#include "core/output/MutationLine.h"
#include "core/service/Answers.h"
#include "core/service/CLIError.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

/// What the service says that deleting will do. Throws std::runtime_error for an answer that is not JSON, and CLIError
/// for one that is no object.
std::string previewMessage(const std::string& transcriptPath) {
    const ServiceReply reply = serviceGet(transcriptPath + "/delete-preview");
    failOnErrorStatus(reply);
    const platform::JsonDocument document = platform::JsonDocument::parseOrThrow(reply.data);
    const auto preview = document.root().object();
    if (!preview) {
        throw CLIError::invalidInput("Invalid delete preview response.");
    }
    return std::string(preview->text("message").value_or("This will remove this chat from your Orvane library and "
                                                         "exclude it from future syncs."));
}

std::string deletedNodesDetail(const platform::JsonObject& deleted) {
    const auto count = deleted.integer("deletedNodes");
    if (!count) {
        return {};
    }
    return std::to_string(*count) + (*count == 1 ? " node" : " nodes") + " soft-deleted; cloud sync triggered if idle";
}

struct Delete final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "delete", .abstract = "Delete an active locally maintained transcript chat by ID."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the active local transcript chat."};

    void run() const override {
        requireUUID(*id);
        const std::string transcriptPath = "/api/transcripts/" + *id;
        confirmDeletion(previewMessage(transcriptPath));
        renderObject(servicePostJSON(transcriptPath + "/delete", JsonBody()), [](const platform::JsonObject& deleted) {
            printMutationLine({.verb = "deleted chat",
                               .name = deleted.text("name"),
                               .id = deleted.text("transcriptId"),
                               .detail = deletedNodesDetail(deleted)});
        });
    }
};

} // namespace

CommandType deleteCommand() {
    return CommandType::of<Delete>();
}

} // namespace orvane
