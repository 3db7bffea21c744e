#include "LibraryFixture.h"

using namespace testsupport;

namespace {

TEST(Team, ListsTeams) {
    expectRows({
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
    expectServiceRefusal({"team"});
    expectRefused({"team", "--limit", "5"}, "Unknown option '--limit'", "orvane-cli team list\n");
}

} // namespace
