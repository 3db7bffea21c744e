// `rm` and `rmdir`: a context or an empty folder deleted, without asking.
#include "core/inputs/Identifiers.h"
#include "core/output/MutationLine.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct Deletion {
    const char* verb;
    const char* abstract;
    const char* idHelp;
    const char* collection; ///< In a path.
    const char* report;
    const char* idKey; ///< In the answer.
};

constexpr Deletion contextDeletion{"rm",       "Delete a context by ID.", "The UUID of the context.",
                                   "contexts", "deleted context",         "contextId"};
constexpr Deletion folderDeletion{
    "rmdir", "Delete an empty folder by ID.", "The UUID of the folder.", "folders", "deleted folder", "folderId"};

template <const Deletion& deletion>
struct DeleteNode final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = deletion.verb, .abstract = deletion.abstract};
    }

    Argument<std::string> id{*this, "id", deletion.idHelp};

    void run() const override {
        requireUUID(*id);
        const std::string path = "/api/" + std::string(deletion.collection) + "/" + *id;
        const QueryItems items = QueryItems().add("cliVerb", deletion.verb);
        renderObject(serviceDelete(buildQueryPath(path, items)), [](const platform::JsonObject& deleted) {
            printMutationLine({.verb = deletion.report, .id = deleted.text(deletion.idKey)});
        });
    }
};

} // namespace

CommandType rmCommand() {
    return CommandType::of<DeleteNode<contextDeletion>>();
}

CommandType rmdirCommand() {
    return CommandType::of<DeleteNode<folderDeletion>>();
}

} // namespace orvane
