#include "support/CommandRow.h"

using namespace testsupport;

namespace {

TEST(Team, ListsTeams) {
    expectRows({
        requestRow("team", "GET /api/teams"),
        requestRow("team list", "GET /api/teams"),
    });
    expectRefused("team --limit 5", "Unknown option '--limit'");
}

TEST(Integration, SendsTheFiltersThatAreGiven) {
    expectRows({
        requestRow("integration", "GET /api/integrations"),
        requestRow("integration list", "GET /api/integrations"),
        requestRow({"integration", "--team-id", "no id"}, "GET /api/integrations?teamId=no%20id"),
        requestRow({"integration", "list", "--team-id", "", "--status", "a&b", "--platform", "ü"},
                   "GET /api/integrations?platform=%C3%BC&status=a%26b&teamId="),
    });
    expectRefused("integration list x", "Unexpected argument 'x'");
}

} // namespace
