#include "LibraryFixture.h"

using namespace testsupport;

namespace {

TEST(Source, SendsWhatIsGiven) {
    expectRequests({
        requestRow({"source"}, "GET /api/sources?sourceType=all&limit=100"),
        requestRow({"source", "list"}, "GET /api/sources?sourceType=all&limit=100"),
        requestRow({"source", "--source-type", "granola"}, "GET /api/sources?sourceType=granola&limit=100"),
        requestRow({"source", "list", "--owner", "a@b.c", "--until", "u", "--since", "s", "--limit", "500",
                    "--source-type", "read_ai", "--parent-id", id},
                   "GET /api/sources?sourceType=read_ai&limit=500&parentId=" + id + "&since=s&until=u&owner=a@b.c"),
        requestRow({"source", "get", id}, "GET /api/sources/" + id),
        requestRow({"source", "get", id, "--limit", "9223372036854775807"},
                   "GET /api/sources/" + id + "?limit=9223372036854775807"),
        requestRow({"source", "get", "--tail-limit", "1", "--head-limit", "25", "--limit", "1", "--offset", "0", id},
                   "GET /api/sources/" + id + "?offset=0&limit=1&headLimit=25&tailLimit=1"),
    });
    for (const char* type : {"all", "context", "transcript", "profile", "notes", "obsidian", "document", "local_folder",
                             "sharepoint", "memory", "meeting", "messaging", "email"}) {
        expectRow(requestRow({"source", "--source-type", type},
                             "GET /api/sources?sourceType=" + std::string(type) + "&limit=100"));
    }
}

TEST(Source, ChecksItsInputInOrder) {
    const std::string list = "orvane-cli source list [--parent-id <parent-id>] [--source-type <source-type>] "
                             "[--since <since>] [--until <until>] [--limit <limit>] [--owner <owner>]\n";
    const std::string get = "orvane-cli source get <id> [--offset <offset>] [--limit <limit>] "
                            "[--head-limit <head-limit>] [--tail-limit <tail-limit>]\n";
    const std::string type = "source-type must be one of: all, context, transcript, profile, notes, obsidian, "
                             "document, local_folder, sharepoint, memory, meeting, messaging, email.";
    const std::string limit = "limit must be between 1 and 500.";
    for (const std::string& notUUID : notUUIDs) {
        expectRefused({"source", "--parent-id", notUUID, "--source-type", "foo"}, "parent-id must be a UUID.", list);
        expectRefused({"source", "get", notUUID, "--offset=-1"}, "Invalid UUID: " + notUUID, get);
    }
    expectRefused({"source", "list", "--source-type", "foo", "--limit", "0"}, type, list);
    expectRefused({"source", "list", "--source-type", ""}, type, list);
    expectRefused({"source", "list", "--source-type", "All"}, type, list);
    expectRefused({"source", "--limit", "0"}, limit, list);
    expectRefused({"source", "--limit", "501"}, limit, list);
    expectRefused({"source", "get", id, "--offset=-1", "--limit", "0"}, "offset must be >= 0.", get);
    expectRefused({"source", "get", id, "--limit", "0", "--head-limit", "0"}, "limit must be >= 1.", get);
    const std::string head = "head-limit must be between 1 and 25.";
    expectRefused({"source", "get", id, "--head-limit", "26", "--tail-limit", "26"}, head, get);
    expectRefused({"source", "get", id, "--tail-limit", "0"}, "tail-limit must be between 1 and 25.", get);
}

} // namespace
