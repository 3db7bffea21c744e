#include "LibraryFixture.h"

using namespace testsupport;

namespace {

TEST(Team, ListsTeams) {
    expectRequests({
        requestRow({"team"}, "GET /api/teams"),
        requestRow({"team", "list"}, "GET /api/teams"),
        {.arguments = {"team", "--help"},
         .out = "OVERVIEW: Inspect Orvane teams available to this account.\n"
                "\n"
                "USAGE: orvane-cli team <subcommand>\n"
                "\n"
                "OPTIONS:\n"
                "  --version               Show the version.\n"
                "  -h, --help              Show help information.\n"
                "\n"
                "SUBCOMMANDS:\n"
                "  list (default)          List teams, members, and shared resources.\n"
                "\n"
                "  See 'orvane-cli help team <subcommand>' for detailed help.\n"},
    });
    expectRefused({"team", "--limit", "5"}, "Unknown option '--limit'", "orvane-cli team list\n");
}

TEST(Integration, SendsTheFiltersThatAreGiven) {
    expectRequests({
        requestRow({"integration"}, "GET /api/integrations"),
        requestRow({"integration", "list"}, "GET /api/integrations"),
        requestRow({"integration", "--team-id", "no id"}, "GET /api/integrations?teamId=no%20id"),
        requestRow({"integration", "list", "--team-id", "", "--status", "a&b", "--platform", "ü"},
                   "GET /api/integrations?platform=%C3%BC&status=a%26b&teamId="),
    });
    expectRefused({"integration", "list", "x"}, "Unexpected argument 'x'",
                  "orvane-cli integration list [--platform <platform>] [--status <status>] [--team-id <team-id>]\n");
}

} // namespace
