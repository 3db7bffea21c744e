// `cat`: the whole text of a node.
#include "core/inputs/Identifiers.h"
#include "core/service/Query.h"
#include "shell/NodeText.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct Cat final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "cat",
                .abstract = "Print a node's full content (transcript, context, note, or a single message). Containers "
                            "are rejected — use `ls`."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the node to read."};

    void validate() const override { validateUUID(*id); }

    void run() const override {
        const QueryItems items = QueryItems().add("full", "true").add("cliVerb", "cat");
        printNodeText(buildQueryPath("/api/nodes/" + *id, items), "cat", *id);
    }
};

} // namespace

CommandType catCommand() {
    return CommandType::of<Cat>();
}

} // namespace orvane
