#include "support/CommandRow.h"

using namespace testsupport;

namespace {

TEST(Node, SendsWhatIsGiven) {
    const Words filters{"--owner", "me", "--until", "x y", "--since", "2024-01-01", "--kind", ""};
    const std::string filterQuery = "&kind=&since=2024-01-01&until=x%20y&owner=me";
    expectRows({
        requestRow("node", "GET /api/nodes?limit=100&offset=0"),
        requestRow("node list", "GET /api/nodes?limit=100&offset=0"),
        requestRow("node --parent grp_", "GET /api/nodes?limit=100&offset=0&parentId=grp_"),
        requestRow(with("node list --name Ä --offset 7 --limit 500 --parent " + id, filters),
                   "GET /api/nodes?limit=500&offset=7&parentId=" + id + filterQuery + "&name=%C3%84"),
        requestRow("node get " + id, "GET /api/nodes/" + id + "?offset=0&limit=25"),
        row("node get " + id, "GET /api/nodes/" + id + "?offset=0&limit=25", "", "\n"),
        requestRow("node get --tail-limit 25 --limit 500 " + id + " --head-limit 1 --offset 3",
                   "GET /api/nodes/" + id + "?offset=3&limit=500&headLimit=1&tailLimit=25"),
        requestRow("node get " + id + " --limit 1 --tail-limit 1 --head-limit 25",
                   "GET /api/nodes/" + id + "?offset=0&limit=1&headLimit=25&tailLimit=1"),
        requestRow("node search a&b", "GET /api/nodes/search?q=a%26b&limit=10"),
        requestRow(with({"node", "search", "", "--literal", "--limit", "1", "--parent", id}, filters),
                   "GET /api/nodes/search?q=&limit=1&parentId=" + id + filterQuery + "&literal=true"),
    });
}

TEST(Node, ChecksItsInputInOrder) {
    const std::string limit = "limit must be between 1 and 500.";
    const std::string offset = "offset must be >= 0.";
    expectRefused("node --parent grp --limit 0", "parent must be a UUID or a grp_ group id.");
    expectRefused("node list --limit 0 --offset=-1", limit);
    expectRefused("node list --limit 501", limit);
    expectRefused("node list --offset=-1", offset);
    expectRefused("node get grp_x --offset=-1", "Invalid UUID: grp_x");
    expectRefused("node get " + id + " --offset=-1 --limit 0", offset);
    expectRefused("node get " + id + " --limit 0 --head-limit 0", limit);
    expectRefused("node get " + id + " --limit 501", limit);
    const std::string head = "head-limit must be between 1 and 25.";
    const std::string tail = "tail-limit must be between 1 and 25.";
    expectRefused("node get " + id + " --head-limit 0 --tail-limit 0", head);
    expectRefused("node get " + id + " --head-limit 26", head);
    expectRefused("node get " + id + " --tail-limit 0", tail);
    expectRefused("node get " + id + " --head-limit 25 --tail-limit 26", tail);
    expectRefused("node search q --parent grp_x --limit 0", "parent must be a UUID.");
    expectRefused("node search q --limit 0", limit);
    expectRefused("node search q --limit 9223372036854775807", limit);
}

} // namespace
