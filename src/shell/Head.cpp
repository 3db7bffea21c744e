// `head`: the beginning of a node's text.
#include "core/inputs/Identifiers.h"
#include "core/service/Query.h"
#include "shell/NodeText.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct Head final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "head",
                .abstract =
                    "Print the first N lines of a node's content (default 10). Reads only enough from the start — "
                    "cheaper than `cat`."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the node to read."};
    OptionGroup<LineCountOptions> count{*this, "count"};

    void validate() const override {
        validateUUID(*id);
        validateLines(count->lines);
    }

    void run() const override {
        const QueryItems items = QueryItems().add("headLines", count->lines).add("cliVerb", "head");
        printNodeText(buildQueryPath("/api/nodes/" + *id, items), "head", *id);
    }
};

} // namespace

CommandType headCommand() {
    return CommandType::of<Head>();
}

} // namespace orvane
