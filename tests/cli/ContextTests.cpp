#include "LibraryFixture.h"

using namespace testsupport;

namespace {

const std::string createHelp =
    "OVERVIEW: Create a new context.\n"
    "\n"
    "USAGE: orvane-cli context create --title <title> [--body <body>] [--body-file <body-file>] [--emoji <emoji>] "
    "[--folder <folder>] [--sources <sources> ...]\n"
    "\n"
    "OPTIONS:\n"
    "  --title <title>         The title of the context.\n"
    "  --body <body>           The markdown body of the context.\n"
    "  --body-file <body-file> Path to a file containing the markdown body. Mutually\n"
    "                          exclusive with --body.\n"
    "  --emoji <emoji>         A single emoji character for the context.\n"
    "  --folder <folder>       The UUID of the folder to place the context in.\n"
    "  --sources <sources>     Source document UUIDs for provenance tracking (e.g.\n"
    "                          transcript or context IDs that informed this context).\n"
    "  --version               Show the version.\n"
    "  -h, --help              Show help information.\n"
    "\n";

TEST(Context, SendsWhatIsGiven) {
    const std::string path = "/api/contexts/" + id;
    const std::string create = "POST /api/contexts\n";
    const std::string edit = "POST " + path + "/edit\n";
    expectRequests({
        requestRow({"context"}, "GET /api/contexts?limit=100"),
        requestRow({"context", "--limit", "500"}, "GET /api/contexts?limit=500"),
        requestRow({"context", "list", "--limit=-7"}, "GET /api/contexts?limit=-7"),
        requestRow({"context", "get", id}, "GET " + path),
        requestRow({"context", "get", id, "--limit", "5"}, "GET " + path + "?limit=5"),
        requestRow({"context", "get", "--limit", "0", id, "--offset=-2"}, "GET " + path + "?offset=-2&limit=0"),
        requestRow({"context", "create", "--title", "T"}, create + R"({"title":"T","markdown":""})"),
        requestRow({"context", "create", "--sources", id, other, "--emoji", "", "--folder", other, "--body", "a\n",
                    "--title", "", "--sources", other},
                   create + R"({"title":"","markdown":"a\n","emoji":"","folderId":")" + other + R"(","sources":[")" +
                       id + R"(",")" + other + R"(",")" + other + R"("]})"),
        requestRow({"context", "edit", id, "--old-string", "a\n", "--new-string", ""},
                   edit + R"({"old_string":"a\n","new_string":""})"),
        requestRow({"context", "edit", "--replace-all", "--new-string", "ü", "--old-string", "", id},
                   edit + R"({"old_string":"","new_string":"ü","replace_all":true})"),
        requestRow({"context", "move", id, "--to", other}, "POST " + path + "/move\n{\"folderId\":\"" + other + "\"}"),
        requestRow({"context", "move", id, "--unfiled"}, "POST " + path + "/move\n{\"unfiled\":true}"),
        requestRow({"context", "rename", id, "--name", ""}, "POST " + path + "/rename\n{\"name\":\"\"}"),
        requestRow({"context", "delete", id}, "DELETE " + path),
        {.arguments = {"context", "create", "--help"}, .out = createHelp},
    });
}

TEST(Context, ChecksItsInputBeforeItRuns) {
    const std::string create = "orvane-cli context create --title <title>";
    const std::string edit = "orvane-cli context edit <id> [--old-string <old-string>] [--old-string-file "
                             "<old-string-file>] [--new-string <new-string>] [--new-string-file <new-string-file>] "
                             "[--replace-all]\n";
    const std::string move = "orvane-cli context move <id> [--to <to>] [--unfiled]\n";
    expectRefused({"context", "create", "--title", "T", "--body", "", "--body-file", "/none", "--sources", "x"},
                  "Cannot use both --body and --body-file.", create);
    expectRefused({"context", "create", "--title", "T", "--folder", "f", "--sources", id, "x", "y"},
                  "Invalid source UUID: x", create);
    const std::vector<std::string> oldTwice{"context", "edit", "abc", "--old-string", "", "--old-string-file", "/none"};
    expectRefused(oldTwice, "Cannot use both --old-string and --old-string-file.", edit);
    expectRefused({"context", "edit", "abc"}, "Must provide either --old-string or --old-string-file.", edit);
    const std::vector<std::string> old{"context", "edit", "abc", "--old-string", "a"};
    expectRefused(with(old, {"--new-string", "b", "--new-string-file", "/none"}),
                  "Cannot use both --new-string and --new-string-file.", edit);
    expectRefused(old, "Must provide either --new-string or --new-string-file.", edit);
    expectRefused({"context", "move", "abc"}, "Provide either --to <folder-id> or --unfiled.", move);
    expectRefused({"context", "move", "abc", "--to", "x", "--unfiled"}, "Cannot use both --to and --unfiled.", move);
    expectMissing({"context", "rename", "abc"}, "--name <name>", "The new name.", "<id> --name <name>");
}

TEST(Context, ChecksItsInputWhileItRuns) {
    expectFailed({"context", "--limit", "501"}, {}, "Limit must be 500 or less.");
    expectFailed({"context", "list", "--limit", "501"}, {}, "Limit must be 500 or less.");
    for (const std::string& notUUID : notUUIDs) {
        const std::string message = "Invalid UUID: " + notUUID;
        expectFailed({"context", "get", notUUID}, {}, message);
        expectFailed({"context", "edit", notUUID, "--old-string-file", "/none", "--new-string", "b"}, {}, message);
        expectFailed({"context", "move", notUUID, "--to", "x"}, {}, message);
        expectFailed({"context", "rename", notUUID, "--name", "n"}, {}, message);
        expectFailed({"context", "delete", notUUID}, {}, message);
    }
    expectFailed({"context", "move", id, "--to", "x"}, {}, "Invalid folder UUID: x");
    expectFailed({"context", "create", "--title", "T", "--folder", "", "--body-file", "/none"}, {},
                 "Invalid folder UUID: ");
}

TEST_F(LibraryFiles, GiveTheTextsOfAContext) {
    const std::string body = file("body", "# T\r\n");
    const std::string oldText = file("old", "old\n\n");
    const std::string newText = file("new", "\n");
    const auto edit = [](const std::string& oldFile, const std::string& newFile) {
        return std::vector<std::string>{"context",           "edit", id, "--new-string-file", newFile,
                                        "--old-string-file", oldFile};
    };
    expectRequests({
        requestRow({"context", "create", "--title", "T", "--body-file", body},
                   "POST /api/contexts\n" + std::string(R"({"title":"T","markdown":"# T\r\n"})")),
        requestRow(edit(oldText, newText),
                   "POST /api/contexts/" + id + "/edit\n" + R"({"old_string":"old\n","new_string":""})"),
    });
    expectFailed({"context", "create", "--title", "T", "--body-file", "none"}, {}, "File not found: none");
    expectFailed(edit("/no-old", "/no-new"), {}, "File not found: /no-old");
    expectFailed(edit(oldText, directory), {}, "Could not read file: " + directory);
}

} // namespace
