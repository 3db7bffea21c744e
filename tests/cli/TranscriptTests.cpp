#include "support/CommandRow.h"

using namespace testsupport;

namespace {

TEST(Transcript, SendsWhatIsGiven) {
    const std::string path = "GET /api/transcripts/" + id;
    expectRows({
        requestRow("transcript", "GET /api/transcripts?limit=50"),
        requestRow({"transcript", "--type", "any type"}, "GET /api/transcripts?limit=50&type=any%20type"),
        requestRow("transcript list --owner team --limit=-1 --type codex",
                   "GET /api/transcripts?limit=-1&type=codex&owner=team"),
        requestRow("transcript list --limit 500", "GET /api/transcripts?limit=500"),
        requestRow("transcript get " + id, path),
        requestRow("transcript get --tail-limit 25 --head-limit 1 " + id, path + "?headLimit=1&tailLimit=25"),
        requestRow("transcript get " + id + " --tail-limit 1 --head-limit 25 --limit=0 --offset=-1",
                   path + "?offset=-1&limit=0&headLimit=25&tailLimit=1"),
    });
}

TEST(Transcript, ChecksItsInputWhileItRuns) {
    const std::string head = "head-limit must be between 1 and 25.";
    const std::string tail = "tail-limit must be between 1 and 25.";
    expectFailed("transcript --limit 501", {}, "Limit must be 500 or less.");
    expectFailed("transcript get abc --head-limit 0", {}, "Invalid UUID: abc");
    expectFailed("transcript get " + id + " --head-limit 0 --tail-limit 0", {}, head);
    expectFailed("transcript get " + id + " --head-limit 26", {}, head);
    expectFailed("transcript get " + id + " --tail-limit 0", {}, tail);
    expectFailed("transcript get " + id + " --tail-limit 26", {}, tail);
    expectRefused("transcript delete " + id, "2 unexpected arguments: 'delete', '" + id + "'");
}

} // namespace
