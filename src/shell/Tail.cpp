// `tail`: the end of a node's text.
#include "core/inputs/Identifiers.h"
#include "core/service/Query.h"
#include "shell/NodeText.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct Tail final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "tail",
                .abstract = "Print the last N lines of a node's content (default 10). Reads only enough from the end — "
                            "cheaper than `cat`."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the node to read."};
    OptionGroup<LineCountOptions> count{*this, "count"};

    void validate() const override {
        validateUUID(*id);
        validateLines(count->lines);
    }

    void run() const override {
        const QueryItems items = QueryItems().add("tailLines", count->lines).add("cliVerb", "tail");
        printNodeText(buildQueryPath("/api/nodes/" + *id, items), "tail", *id);
    }
};

} // namespace

CommandType tailCommand() {
    return CommandType::of<Tail>();
}

} // namespace orvane
