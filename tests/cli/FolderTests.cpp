#include "support/CommandRow.h"

using namespace testsupport;

namespace {

TEST(Folder, SendsWhatIsGiven) {
    const std::string path = "/api/folders/" + id;
    expectRows({
        requestRow("folder", "GET /api/folders?limit=100"),
        requestRow("folder --limit 0", "GET /api/folders?limit=0"),
        requestRow("folder list --limit 500", "GET /api/folders?limit=500"),
        requestRow("folder get " + id, "GET " + path),
        requestRow("folder create --name N", "POST /api/folders\n{\"name\":\"N\"}"),
        requestRow({"folder", "create", "--emoji", "🌱", "--name", "a\"b"},
                   std::string("POST /api/folders\n") + R"({"name":"a\"b","emoji":"🌱"})"),
        requestRow("folder rename " + id + " --name N", "POST " + path + "/rename\n{\"name\":\"N\"}"),
        requestRow({"folder", "rename", "--name", "", "--emoji", "", id},
                   "POST " + path + "/rename\n" + R"({"name":"","emoji":""})"),
        requestRow("folder move " + id + " --to " + other, "POST " + path + "/move\n{\"parentId\":\"" + other + "\"}"),
        requestRow("folder move " + id + " --to-root", "POST " + path + "/move\n{\"root\":true}"),
        requestRow("folder delete " + id, "DELETE " + path),
    });
}

TEST(Folder, ChecksItsInput) {
    const std::string oneDestination = "Provide exactly one of --to <parent-folder-id> or --to-root.";
    expectRefused("folder move " + id, oneDestination);
    expectRefused("folder move abc --to X --to-root", oneDestination);
    expectRefused({"folder", "move", "abc", "--to", ""}, "--to must be a folder UUID.");
    expectRefused("folder move " + id + " --to grp_x", "--to must be a folder UUID.");
    expectFailed("folder --limit 501", {}, "Limit must be 500 or less.");
    expectFailed("folder get abc", {}, "Invalid UUID: abc");
    expectFailed("folder rename abc --name N", {}, "Invalid UUID: abc");
    expectFailed("folder move abc --to " + id, {}, "Invalid UUID: abc");
    expectFailed("folder delete abc", {}, "Invalid UUID: abc");
}

} // namespace
