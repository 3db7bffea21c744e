#include <gtest/gtest.h>

#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

const std::string id = "7f1b103c-df15-42b0-aab4-77d26415479c";
const std::string other = "90C192CF-d3ac-44af-8f21-ddb66cad4a26";

class Editing : public TemporaryFiles {};

CommandRow row(std::vector<std::string> arguments, std::string request, std::string reply, std::string out) {
    return {.arguments = std::move(arguments),
            .answers = {answer(std::move(reply))},
            .requests = {std::move(request)},
            .out = std::move(out)};
}

CommandRow withInput(CommandRow given, Input input) {
    given.setting.input = std::move(input);
    return given;
}

TEST(Mkdir, CreatesAFolder) {
    const std::string post = "POST /api/folders?cliVerb=mkdir\n";
    expectRows({
        row({"mkdir", "Nö\"tes"}, post + R"({"name":"Nö\"tes"})", R"({"name":"Nötes","id":"i1"})",
            "created folder \"Nötes\"  i1\n"),
        row({"mkdir", "N", other, "--emoji", "🌱"}, post + R"({"name":"N","parentId":")" + other + R"(","emoji":"🌱"})",
            R"({"name":"","id":7})", "created folder\n"),
        row({"mkdir", ""}, post + R"({"name":""})", "[]", "[]\n"),
    });
    expectRefused({"mkdir", "Notes", "5"}, "parent must be a UUID.",
                  "orvane-cli mkdir <name> [<parent>] [--emoji <emoji>]");
    expectServiceRefusal({"mkdir", "N"});
    CommandRow coloured = row({"mkdir", "N"}, post + R"({"name":"N"})", R"({"name":"N","id":"i"})",
                              "\x1B[32mcreated folder\x1B[0m \x1B[1m\"N\"\x1B[0m  \x1B[36mi\x1B[0m\n");
    coloured.setting.out = Output::terminal();
    expectRow(coloured);
}

TEST_F(Editing, TeeTakesItsBodyFromAPipeOrAFile) {
    const std::string post = "POST /api/contexts?cliVerb=tee\n";
    const std::string reply = R"({"name":"T","id":"i","cloudSyncPending":false})";
    const std::string report = "created context \"T\"  i\n";
    const auto body = [&](const std::string& markdown) {
        return post + R"({"title":"T","markdown":")" + markdown + R"("})";
    };
    const std::string path = file("body", "from\tfile\n\n");
    const std::string large(1'000'000, 'x');
    expectRows({
        withInput(row({"tee", "T"}, body(R"(a\r\n\n)"), reply, report), Input::pipe("a\r\n\n")),
        withInput(row({"tee", "T"}, body(large), reply, report), Input::pipe(large)),
        withInput(row({"tee", "T"}, body(""), reply, report), Input::pipe("a\xFF")),
        withInput(row({"tee", "T"}, body(""), reply, report), Input::pipe("")),
        withInput(row({"tee", "T"}, body(""), reply, report), Input::terminal("typed\n")),
        withInput(row({"tee", "T"}, body(""), reply, report), Input::closed()),
        withInput(row({"tee", "T", "--from-file", path}, body(R"(from\tfile\n)"), reply, report), Input::pipe("no")),
        row({"tee", "--folder", id, "T", "--sources", id, other, "--emoji", "X", "--sources", id},
            post + R"({"title":"T","markdown":"","emoji":"X","folderId":")" + id + R"(","sources":[")" + id + "\",\"" +
                other + "\",\"" + id + R"("]})",
            R"({"id":"i","cloudSyncPending":true})",
            "created context  i  still preparing for collaborative editing; it may take a few minutes to become "
            "available\n"),
    });
    const std::string usage = "orvane-cli tee <title> [--from-file <from-file>] [--emoji <emoji>] [--folder <folder>] "
                              "[--sources <sources> ...]";
    expectRefused({"tee", "T", "--folder", "x", "--sources", "y"}, "folder must be a UUID.", usage);
    expectRefused({"tee", "T", "--sources", id, "y"}, "Invalid source UUID: y", usage);
    expectFailed({"tee", "T", "--from-file", "~/none"}, {}, "File not found: ~/none");
    expectFailed({"tee", "T", "--from-file", directory}, {}, "Could not read file: " + directory);
}

TEST_F(Editing, SedSendsAnExactTextAndItsReplacement) {
    const std::string post = "POST /api/contexts/" + id + "/edit?cliVerb=sed\n";
    const std::string oldFile = file("old", "a\nb\n");
    const std::string newFile = file("new", "c\r\n");
    expectRows({
        row({"sed", id, "--old", "a", "--new", "b", "--all"},
            post + R"({"old_string":"a","new_string":"b","replace_all":true})",
            R"({"contextId":"c","replace_all":true})", "edited context  c  (all occurrences)\n"),
        row({"sed", id, "--old=-a", "--new", ""}, post + R"({"old_string":"-a","new_string":""})",
            R"({"contextId":"c","replace_all":"true"})", "edited context  c\n"),
        row({"sed", id, "--old-file", oldFile, "--new-file", newFile},
            post + R"({"old_string":"a\nb","new_string":"c\r\n"})", "null", "null\n"),
    });
    const std::string usage = "orvane-cli sed <id> [--old <old>] [--old-file <old-file>] [--new <new>] "
                              "[--new-file <new-file>] [--all]";
    expectRefused({"sed", "x", "--old", "a", "--old-file", "b"}, "Cannot use both --old and --old-file.", usage);
    expectRefused({"sed", "x", "--new", "a", "--new-file", "b"}, "Must provide either --old or --old-file.", usage);
    expectRefused({"sed", "x", "--old", "a", "--new", "a", "--new-file", "b"}, "Cannot use both --new and --new-file.",
                  usage);
    expectRefused({"sed", "x", "--old", "a"}, "Must provide either --new or --new-file.", usage);
    expectFailed({"sed", "x", "--old-file", "/none", "--new", "b"}, {}, "Invalid UUID: x");
    expectFailed({"sed", id, "--old-file", "/none", "--new-file", "/none2"}, {}, "File not found: /none");
    expectServiceRefusal({"sed", id, "--old", "a", "--new", "b"});
}

TEST_F(Editing, ReplaceLinesSendsWholeLines) {
    const auto edit = [](std::vector<std::string> arguments, const std::string& body, const std::string& detail) {
        arguments.insert(arguments.begin(), {"replace-lines", id});
        return row(std::move(arguments), "POST /api/contexts/" + id + "/edit?cliVerb=replace-lines\n" + body,
                   R"({"contextId":"c"})", "edited context  c  (" + detail + " complete lines)\n");
    };
    expectRows({
        edit({"--old-line", "a\n", "--old-line", "", "--new-line", "x", "--new-line=-y"},
             R"({"old_lines":["a\n",""],"new_lines":["x","-y"]})", "replaced"),
        edit({"--old-line", "a", "--delete"}, R"({"old_lines":["a"],"new_lines":[]})", "deleted"),
        edit({"--old-line", "a", "--new-file", file("empty", "")}, R"({"old_lines":["a"],"new_lines":[]})", "replaced"),
    });
    const std::vector<std::pair<std::string, std::string>> files{
        {"a", R"(["a"])"},
        {"a\r\nb\r\n", R"(["a","b"])"},
        {"a\rb\r", R"(["a","b"])"},
        {"a\n\nb\n\n", R"(["a","","b",""])"},
        {"a\r\n\n", R"(["a",""])"},
        {"\n\n", R"(["",""])"},
        {"a\n\r\nb", R"(["a","","b"])"},
    };
    for (const auto& [bytes, lines] : files) {
        expectRow(edit({"--old-file", file("old", bytes), "--delete"},
                       R"({"old_lines":)" + lines + R"(,"new_lines":[]})", "deleted"));
    }
    for (const char* bytes : {"", "\n", "\r\n", "\r"}) {
        expectFailed({"replace-lines", id, "--old-file", file("old", bytes), "--new-file", "/none"}, {},
                     "At least one old line is required.");
    }
    const std::string usage = "orvane-cli replace-lines <id> [--old-line <old-line> ...] [--old-file <old-file>] "
                              "[--new-line <new-line> ...] [--new-file <new-file>] [--delete]";
    const std::string modes = "Provide exactly one of --new-line, --new-file, or --delete.";
    expectRefused({"replace-lines", id, "--old-line", "a", "--old-file", "b"},
                  "Cannot use both --old-line and --old-file.", usage);
    expectRefused({"replace-lines", id, "--delete"}, "Provide --old-line or --old-file.", usage);
    expectRefused({"replace-lines", id, "--old-line", "a"}, modes, usage);
    expectRefused({"replace-lines", id, "--old-line", "a", "--new-line", "x", "--delete"}, modes, usage);
    expectFailed({"replace-lines", "x", "--old-file", "/none", "--delete"}, {}, "Invalid UUID: x");
    expectFailed({"replace-lines", id, "--old-file", "/none", "--new-file", "/none2"}, {}, "File not found: /none");
    expectServiceRefusal({"replace-lines", id, "--old-line", "a", "--delete"});
}

} // namespace
