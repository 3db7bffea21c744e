// `head` and `tail`: one end of a node's text.
#include "core/inputs/Checks.h"
#include "core/inputs/Identifiers.h"
#include "core/service/Query.h"
#include "shell/NodeText.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

struct TextEnd {
    const char* verb;
    const char* abstract;
    const char* countKey; ///< In the query.
};

constexpr TextEnd head{"head",
                       "Print the first N lines of a node's content (default 10). Reads only enough from the start — "
                       "cheaper than `cat`.",
                       "headLines"};
constexpr TextEnd tail{"tail",
                       "Print the last N lines of a node's content (default 10). Reads only enough from the end — "
                       "cheaper than `cat`.",
                       "tailLines"};

template <const TextEnd& end>
struct ReadTextEnd final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = end.verb, .abstract = end.abstract}; }

    Argument<std::string> id{*this, "id", "The UUID of the node to read."};
    Option<Integer> lines{
        *this, "lines", 10, "Number of lines to print (default: 10).", {.names = {longName(), customShort("n")}}};

    void validate() const override {
        validateUUID(*id);
        validateThat(lines > 0, "lines must be greater than 0.");
    }

    void run() const override {
        const QueryItems items = QueryItems().add(end.countKey, lines).add("cliVerb", end.verb);
        printNodeText(buildQueryPath("/api/nodes/" + *id, items), end.verb, *id);
    }
};

} // namespace

CommandType headCommand() {
    return CommandType::of<ReadTextEnd<head>>();
}

CommandType tailCommand() {
    return CommandType::of<ReadTextEnd<tail>>();
}

} // namespace orvane
