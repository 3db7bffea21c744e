#include "LibraryFixture.h"

using namespace testsupport;

namespace {

TEST(Integration, SendsTheFiltersThatAreGiven) {
    expectRows({
        requestRow({"integration"}, "GET /api/integrations"),
        requestRow({"integration", "list"}, "GET /api/integrations"),
        requestRow({"integration", "--team-id", "no id"}, "GET /api/integrations?teamId=no%20id"),
        requestRow({"integration", "list", "--team-id", "", "--status", "a&b", "--platform", "ü"},
                   "GET /api/integrations?platform=%C3%BC&status=a%26b&teamId="),
    });
    expectServiceRefusal({"integration", "--status", "active"});
    expectRefused({"integration", "list", "x"}, "Unexpected argument 'x'",
                  "orvane-cli integration list [--platform <platform>] [--status <status>] [--team-id <team-id>]\n");
}

} // namespace
