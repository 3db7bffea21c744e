#include "LibraryFixture.h"

using namespace testsupport;

namespace {

const std::string getHelp =
    "OVERVIEW: Get a node by ID, including readable content when available.\n"
    "\n"
    "USAGE: orvane-cli node get <id> [--offset <offset>] [--limit <limit>] [--head-limit <head-limit>] [--tail-limit "
    "<tail-limit>]\n"
    "\n"
    "ARGUMENTS:\n"
    "  <id>                    The UUID of the node.\n"
    "\n"
    "OPTIONS:\n"
    "  --offset <offset>       Starting chunk/message index for readable nodes\n"
    "                          (default: 0). (default: 0)\n"
    "  --limit <limit>         Maximum number of chunks/messages for readable nodes\n"
    "                          (default: 25, max: 500). (default: 25)\n"
    "  --head-limit <head-limit>\n"
    "                          Optional number of beginning chunks/messages to read\n"
    "                          (max: 25).\n"
    "  --tail-limit <tail-limit>\n"
    "                          Optional number of recent tail chunks/messages to\n"
    "                          read (max: 25).\n"
    "  --version               Show the version.\n"
    "  -h, --help              Show help information.\n"
    "\n";

TEST(Node, SendsWhatIsGiven) {
    const std::vector<std::string> filters{"--owner", "me", "--until", "x y", "--since", "2024-01-01", "--kind", ""};
    const std::string filterQuery = "&kind=&since=2024-01-01&until=x%20y&owner=me";
    expectRequests({
        requestRow({"node"}, "GET /api/nodes?limit=100&offset=0"),
        requestRow({"node", "list"}, "GET /api/nodes?limit=100&offset=0"),
        requestRow({"node", "--parent", "grp_"}, "GET /api/nodes?limit=100&offset=0&parentId=grp_"),
        requestRow(with({"node", "list", "--name", "Ä", "--offset", "7", "--limit", "500", "--parent", id}, filters),
                   "GET /api/nodes?limit=500&offset=7&parentId=" + id + filterQuery + "&name=%C3%84"),
        requestRow({"node", "get", id}, "GET /api/nodes/" + id + "?offset=0&limit=25"),
        requestRow({"node", "get", "--tail-limit", "25", "--limit", "500", id, "--head-limit", "1", "--offset", "3"},
                   "GET /api/nodes/" + id + "?offset=3&limit=500&headLimit=1&tailLimit=25"),
        requestRow({"node", "search", "a&b"}, "GET /api/nodes/search?q=a%26b&limit=10"),
        requestRow(with({"node", "search", "", "--literal", "--limit", "1", "--parent", id}, filters),
                   "GET /api/nodes/search?q=&limit=1&parentId=" + id + filterQuery + "&literal=true"),
        {.arguments = {"node", "get", "--help"}, .out = getHelp},
    });
}

TEST(Node, ChecksItsInputInOrder) {
    const std::string list = "orvane-cli node list [--parent <parent>] [--kind <kind>] [--since <since>] "
                             "[--until <until>] [--limit <limit>] [--offset <offset>] [--owner <owner>] "
                             "[--name <name>]\n";
    const std::string get = "orvane-cli node get <id> [--offset <offset>]";
    const std::string search = "orvane-cli node search <query> [--parent <parent>] [--kind <kind>] [--since <since>] "
                               "[--until <until>] [--limit <limit>] [--literal] [--owner <owner>]\n";
    const std::string limit = "limit must be between 1 and 500.";
    const std::string offset = "offset must be >= 0.";
    expectRefused({"node", "--parent", "grp", "--limit", "0"}, "parent must be a UUID or a grp_ group id.", list);
    expectRefused({"node", "list", "--limit", "0", "--offset=-1"}, limit, list);
    expectRefused({"node", "list", "--limit", "501"}, limit, list);
    expectRefused({"node", "list", "--offset=-1"}, offset, list);
    for (const std::string& notUUID : notUUIDs) {
        expectRefused({"node", "get", notUUID, "--offset=-1"}, "Invalid UUID: " + notUUID, get);
        expectRefused({"node", "search", "q", "--parent", notUUID, "--limit", "0"}, "parent must be a UUID.", search);
    }
    expectRefused({"node", "get", id, "--offset=-1", "--limit", "0"}, offset, get);
    expectRefused({"node", "get", id, "--limit", "0", "--head-limit", "0"}, limit, get);
    expectRefused({"node", "get", id, "--limit", "501"}, limit, get);
    const std::string head = "head-limit must be between 1 and 25.";
    const std::string tail = "tail-limit must be between 1 and 25.";
    expectRefused({"node", "get", id, "--head-limit", "0", "--tail-limit", "0"}, head, get);
    expectRefused({"node", "get", id, "--head-limit", "26"}, head, get);
    expectRefused({"node", "get", id, "--tail-limit", "0"}, tail, get);
    expectRefused({"node", "get", id, "--head-limit", "25", "--tail-limit", "26"}, tail, get);
    expectRefused({"node", "search", "q", "--limit", "0"}, limit, search);
    expectRefused({"node", "search", "q", "--limit", "9223372036854775807"}, limit, search);
}

} // namespace
