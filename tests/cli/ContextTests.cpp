#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

class ContextFiles : public TemporaryFiles {};

TEST(Context, SendsWhatIsGiven) {
    const std::string path = "/api/contexts/" + id;
    const std::string create = "POST /api/contexts\n";
    const std::string edit = "POST " + path + "/edit\n";
    expectRows({
        requestRow("context", "GET /api/contexts?limit=100"),
        requestRow("context --limit 500", "GET /api/contexts?limit=500"),
        requestRow("context list --limit=-7", "GET /api/contexts?limit=-7"),
        requestRow("context get " + id, "GET " + path),
        requestRow("context get " + id + " --limit 5", "GET " + path + "?limit=5"),
        requestRow("context get --limit 0 " + id + " --offset=-2", "GET " + path + "?offset=-2&limit=0"),
        requestRow("context create --title T", create + R"({"title":"T","markdown":""})"),
        requestRow({"context", "create", "--sources", id, other, "--emoji", "", "--folder", other, "--body", "a\n",
                    "--title", "", "--sources", other},
                   create + R"({"title":"","markdown":"a\n","emoji":"","folderId":")" + other + R"(","sources":[")" +
                       id + R"(",")" + other + R"(",")" + other + R"("]})"),
        requestRow({"context", "edit", id, "--old-string", "a\n", "--new-string", ""},
                   edit + R"({"old_string":"a\n","new_string":""})"),
        requestRow({"context", "edit", "--replace-all", "--new-string", "ü", "--old-string", "", id},
                   edit + R"({"old_string":"","new_string":"ü","replace_all":true})"),
        requestRow("context move " + id + " --to " + other, "POST " + path + "/move\n{\"folderId\":\"" + other + "\"}"),
        requestRow("context move " + id + " --unfiled", "POST " + path + "/move\n{\"unfiled\":true}"),
        requestRow({"context", "rename", id, "--name", ""}, "POST " + path + "/rename\n{\"name\":\"\"}"),
        requestRow("context delete " + id, "DELETE " + path),
    });
}

TEST(Context, ChecksItsInputBeforeItRuns) {
    const Words create = "context create --title T";
    expectRefused(with(create, {"--body", "", "--body-file", "/none", "--sources", "x"}),
                  "Cannot use both --body and --body-file.");
    expectRefused(with(create, "--folder f --sources " + id + " x y"), "Invalid source UUID: x");
    const Words edit = "context edit abc";
    const Words old = with(edit, "--old-string a");
    expectRefused(with(edit, {"--old-string", "", "--old-string-file", "/none"}),
                  "Cannot use both --old-string and --old-string-file.");
    expectRefused(edit, "Must provide either --old-string or --old-string-file.");
    expectRefused(with(old, "--new-string b --new-string-file /none"),
                  "Cannot use both --new-string and --new-string-file.");
    expectRefused(old, "Must provide either --new-string or --new-string-file.");
    expectRefused("context move abc", "Provide either --to <folder-id> or --unfiled.");
    expectRefused("context move abc --to x --unfiled", "Cannot use both --to and --unfiled.");
}

TEST(Context, ChecksItsInputWhileItRuns) {
    expectFailed("context --limit 501", {}, "Limit must be 500 or less.");
    expectFailed("context get abc", {}, "Invalid UUID: abc");
    expectFailed("context edit abc --old-string-file /none --new-string b", {}, "Invalid UUID: abc");
    expectFailed("context move abc --to x", {}, "Invalid UUID: abc");
    expectFailed("context rename abc --name n", {}, "Invalid UUID: abc");
    expectFailed("context delete abc", {}, "Invalid UUID: abc");
    expectFailed("context move " + id + " --to x", {}, "Invalid folder UUID: x");
    expectFailed({"context", "create", "--title", "T", "--folder", "", "--body-file", "/none"}, {},
                 "Invalid folder UUID: ");
}

TEST_F(ContextFiles, GiveTheTexts) {
    const std::string oldText = file("old", "old\n\n");
    const auto edit = [](const std::string& oldFile, const std::string& newFile) {
        return Words{"context", "edit", id, "--new-string-file", newFile, "--old-string-file", oldFile};
    };
    expectRows({
        requestRow({"context", "create", "--title", "T", "--body-file", file("body", "# T\r\n")},
                   std::string("POST /api/contexts\n") + R"({"title":"T","markdown":"# T\r\n"})"),
        requestRow(edit(oldText, file("new", "\n")),
                   "POST /api/contexts/" + id + "/edit\n" + R"({"old_string":"old\n","new_string":""})"),
    });
    expectFailed("context create --title T --body-file none", {}, "File not found: none");
    expectFailed(edit("/no-old", "/no-new"), {}, "File not found: /no-old");
    expectFailed(edit(oldText, directory), {}, "Could not read file: " + directory);
}

} // namespace
