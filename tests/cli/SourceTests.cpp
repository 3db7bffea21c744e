#include "support/CommandRow.h"

using namespace testsupport;

namespace {

TEST(Source, SendsWhatIsGiven) {
    expectRows({
        requestRow("source", "GET /api/sources?sourceType=all&limit=100"),
        requestRow("source list", "GET /api/sources?sourceType=all&limit=100"),
        requestRow("source --source-type granola", "GET /api/sources?sourceType=granola&limit=100"),
        requestRow("source list --owner a@b.c --until u --since s --limit 500 --source-type read_ai --parent-id " + id,
                   "GET /api/sources?sourceType=read_ai&limit=500&parentId=" + id + "&since=s&until=u&owner=a@b.c"),
        requestRow("source get " + id, "GET /api/sources/" + id),
        requestRow("source get " + id + " --limit 9223372036854775807",
                   "GET /api/sources/" + id + "?limit=9223372036854775807"),
        requestRow("source get --tail-limit 1 --head-limit 25 --limit 1 --offset 0 " + id,
                   "GET /api/sources/" + id + "?offset=0&limit=1&headLimit=25&tailLimit=1"),
    });
    for (const char* type : {"all", "context", "transcript", "profile", "notes", "obsidian", "document", "local_folder",
                             "sharepoint", "memory", "meeting", "messaging", "email"}) {
        expectRow(requestRow({"source", "--source-type", type},
                             "GET /api/sources?sourceType=" + std::string(type) + "&limit=100"));
    }
}

TEST(Source, ChecksItsInputInOrder) {
    const std::string type = "source-type must be one of: all, context, transcript, profile, notes, obsidian, "
                             "document, local_folder, sharepoint, memory, meeting, messaging, email.";
    const std::string limit = "limit must be between 1 and 500.";
    expectRefused("source --parent-id grp_x --source-type foo", "parent-id must be a UUID.");
    expectRefused("source list --source-type foo --limit 0", type);
    expectRefused({"source", "list", "--source-type", ""}, type);
    expectRefused("source list --source-type All", type);
    expectRefused("source --limit 0", limit);
    expectRefused("source --limit 501", limit);
    expectRefused("source get grp_x --offset=-1", "Invalid UUID: grp_x");
    expectRefused("source get " + id + " --offset=-1 --limit 0", "offset must be >= 0.");
    expectRefused("source get " + id + " --limit 0 --head-limit 0", "limit must be >= 1.");
    expectRefused("source get " + id + " --head-limit 26 --tail-limit 26", "head-limit must be between 1 and 25.");
    expectRefused("source get " + id + " --tail-limit 0", "tail-limit must be between 1 and 25.");
}

} // namespace
