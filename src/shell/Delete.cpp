#include "shell/Delete.h"

#include "core/CLIError.h"
#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "core/TextInput.h"

namespace orvane {

namespace {

/// What the service says that deleting will do. Throws std::runtime_error for an answer that is not JSON, and CLIError
/// for one that is no object.
std::string previewMessage(const std::string& transcriptPath) {
    const ServiceReply reply = serviceGet(transcriptPath + "/delete-preview", standardTimeout);
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

} // namespace

CommandConfiguration Delete::configuration() {
    return {.commandName = "delete", .abstract = "Delete an active locally maintained transcript chat by ID."};
}

void Delete::run() const {
    requireUUID(*id);
    const std::string transcriptPath = "/api/transcripts/" + *id;
    confirmDeletion(previewMessage(transcriptPath));
    const ServiceReply reply = servicePostJSON(transcriptPath + "/delete", JsonBody(), standardTimeout);
    failOnErrorStatus(reply);
    renderObject(reply.data, [](const platform::JsonObject& deleted) {
        printMutationLine("deleted chat", deleted.text("name"), deleted.text("transcriptId"),
                          deletedNodesDetail(deleted));
    });
}

} // namespace orvane
