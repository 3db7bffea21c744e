#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

class Editing : public TemporaryFiles {};

TEST(Mkdir, CreatesAFolder) {
    const std::string post = "POST /api/folders?cliVerb=mkdir\n";
    const std::string plain = post + R"({"name":"N"})";
    expectRows({
        row({"mkdir", "Nö\"tes"}, post + R"({"name":"Nö\"tes"})", R"({"name":"Nötes","id":"i1"})",
            "created folder \"Nötes\"  i1\n"),
        row("mkdir N " + other + " --emoji 🌱", post + R"({"name":"N","parentId":")" + other + R"(","emoji":"🌱"})",
            R"({"name":"","id":7})", "created folder\n"),
        row({"mkdir", ""}, post + R"({"name":""})", "[]", "[]\n"),
        row("mkdir N", plain, R"({"name":")" + std::string(81, 'n') + "\"}",
            "created folder \"" + std::string(79, 'n') + "…\"\n"),
        onTerminal(row("mkdir N", plain, R"({"name":"N","id":"i"})",
                       "\x1B[32mcreated folder\x1B[0m \x1B[1m\"N\"\x1B[0m  \x1B[36mi\x1B[0m\n")),
    });
    expectRefused("mkdir Notes 5", "parent must be a UUID.");
}

TEST_F(Editing, TeeTakesItsBodyFromAPipeOrAFile) {
    const std::string post = "POST /api/contexts?cliVerb=tee\n";
    const auto created = [&](Words arguments, const std::string& markdown, Location where = Location::current()) {
        return row(std::move(arguments), post + R"({"title":"T","markdown":")" + markdown + R"("})",
                   R"({"name":"T","id":"i","cloudSyncPending":false})", "created context \"T\"  i\n", where);
    };
    const std::string large(1'000'000, 'x');
    CommandRow hasty = withInput(created("tee T", large), Input::pipe(large));
    hasty.setting.waits = false;
    CommandRow notText = withInput(created("tee T", ""), Input::pipe("a\xFF"));
    notText.err = "orvane tee: standard input is not valid UTF-8; the body was left empty.\n";
    expectRows({
        withInput(created("tee T", R"(a\r\n\n)"), Input::pipe("a\r\n\n")),
        withInput(created("tee T", large), Input::pipe(large)),
        hasty,
        notText,
        withInput(created("tee T", ""), Input::pipe("")),
        withInput(created("tee T", ""), Input::terminal("typed\n")),
        withInput(created({"tee", "T", "--from-file", file("other", "x")}, "x"), Input::closed()),
        withInput(created({"tee", "T", "--from-file", file("body", "from\tfile\n\n")}, R"(from\tfile\n)"),
                  Input::pipe("no")),
        created("tee T --from-file " + file("\xFF", "x"), "x"),
        row("tee --folder " + id + " T --sources " + id + " " + other + " --emoji X --sources " + id,
            post + R"({"title":"T","markdown":"","emoji":"X","folderId":")" + id + R"(","sources":[")" + id + "\",\"" +
                other + "\",\"" + id + R"("]})",
            R"({"id":"i","cloudSyncPending":true})",
            "created context  i  still preparing for collaborative editing; it may take a few minutes to become "
            "available\n"),
    });
    expectRefused("tee T --folder x --sources y", "folder must be a UUID.");
    expectRefused("tee T --sources " + id + " y", "Invalid source UUID: y");
    expectFailed("tee T --from-file ~/none", {}, "File not found: ~/none");
    expectFailed({"tee", "T", "--from-file", directory}, {}, "Could not read file: " + directory);
}

TEST_F(Editing, SedSendsAnExactTextAndItsReplacement) {
    const std::string post = "POST /api/contexts/" + id + "/edit?cliVerb=sed\n";
    const std::string oldFile = file("old", "a\nb\n");
    const std::string newFile = file("new", "c\r\n");
    expectRows({
        row("sed " + id + " --old a --new b --all", post + R"({"old_string":"a","new_string":"b","replace_all":true})",
            R"({"contextId":"c","replace_all":true})", "edited context  c  (all occurrences)\n"),
        row({"sed", id, "--old=-a", "--new", ""}, post + R"({"old_string":"-a","new_string":""})",
            R"({"contextId":"c","replace_all":"true"})", "edited context  c\n"),
        row({"sed", id, "--old-file", oldFile, "--new-file", newFile},
            post + R"({"old_string":"a\nb","new_string":"c\r\n"})", "null", "null\n"),
    });
    expectRefused("sed x --old a --old-file b", "Cannot use both --old and --old-file.");
    expectRefused("sed x --new a --new-file b", "Must provide either --old or --old-file.");
    expectRefused("sed x --old a --new a --new-file b", "Cannot use both --new and --new-file.");
    expectRefused("sed x --old a", "Must provide either --new or --new-file.");
    expectFailed("sed x --old-file /none --new b", {}, "Invalid UUID: x");
    expectFailed("sed " + id + " --old-file /none --new-file /none2", {}, "File not found: /none");
}

TEST_F(Editing, ReplaceLinesSendsWholeLines) {
    const auto edit = [](const Words& options, const std::string& body, const std::string& detail,
                         Location where = Location::current()) {
        return row(with("replace-lines " + id, options),
                   "POST /api/contexts/" + id + "/edit?cliVerb=replace-lines\n" + body, R"({"contextId":"c"})",
                   "edited context  c  (" + detail + " complete lines)\n", where);
    };
    expectRows({
        edit({"--old-line", "a\n", "--old-line", "", "--new-line", "x", "--new-line=-y"},
             R"({"old_lines":["a\n",""],"new_lines":["x","-y"]})", "replaced"),
        edit("--old-line a --delete", R"({"old_lines":["a"],"new_lines":[]})", "deleted"),
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
    const Words old = "replace-lines " + id + " --old-line a";
    const std::string modes = "Provide exactly one of --new-line, --new-file, or --delete.";
    expectRefused(with(old, "--old-file b"), "Cannot use both --old-line and --old-file.");
    expectRefused("replace-lines " + id + " --delete", "Provide --old-line or --old-file.");
    expectRefused(old, modes);
    expectRefused(with(old, "--new-line x --delete"), modes);
    expectFailed("replace-lines x --old-file /none --delete", {}, "Invalid UUID: x");
    expectFailed("replace-lines " + id + " --old-file /none --new-file /none2", {}, "File not found: /none");
}

} // namespace
