#include <filesystem>

#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

const std::string item = " /api/skill/item/" + lowerId;

class Skills : public TemporaryFiles {};

/// A run of `skill <words>` that posts `body` to `path` and prints the answer as it came.
CommandRow posts(const Words& words, const std::string& path, const std::string& body,
                 Location where = Location::current()) {
    return requestRow(with("skill", words), "POST " + path + "\n" + body, where);
}

TEST_F(Skills, AreAskedForInLowerCase) {
    const std::string create = "/api/skill/create";
    const std::string path = "/api/skill/item/" + lowerId;
    const std::string body = file("~", "\xEF\xBB\xBF a\r\n\n");
    CommandRow fromFile = posts("create N --content-file ~", create,
                                "{\"kind\":\"skill\",\"name\":\"N\",\"content\":\"\xEF\xBB\xBF a\\r\\n\\n\"}");
    fromFile.setting.directory = directory;
    expectRequests({
        requestRow("skill ls", "GET /api/skill/roots"),
        requestRow("skill ls " + id, "GET" + item + "/children"),
        requestRow("skill stat " + id, "GET" + item),
        posts({"create", " "}, create, R"({"kind":"skill","name":" "})"),
        posts({"create", "N", "--content", "", "--parent", other, "--description", ""}, create,
              R"({"kind":"skill","name":"N","parentId":")" + lowerOther + R"(","description":"","content":""})"),
        fromFile,
        posts("bundle create N", create, R"({"kind":"bundle","name":"N"})"),
        posts({"rename", id, ""}, path + "/rename", R"({"name":""})"),
        posts({"rename", id, "N", "--if-revision", ""}, path + "/rename", R"({"name":"N","ifRevision":""})"),
        posts("move " + id + " --to " + other, path + "/move", R"({"parentId":")" + lowerOther + "\"}"),
        posts("move " + id + " --top-level --if-revision r", path + "/move", R"({"topLevel":true,"ifRevision":"r"})"),
        posts("remove --force " + id, path + "/delete", "{}"),
        requestRow("skill installed", "GET /api/skill/installed"),
        requestRow("skill installed --agent codex", "GET /api/skill/installed?agent=codex"),
        requestRow("skill import --list", "GET /api/skill/importable"),
        posts({"import", "--agent", "claude", "--name", " \u00A0x y\n"}, "/api/skill/import",
              R"({"agent":"claude","name":"x y"})"),
    });
}

TEST_F(Skills, AreCheckedInOrder) {
    const std::string content = "Pass at most one of --content or --content-file.";
    const std::string destination = "Pass exactly one destination: --to <bundle-id> or --top-level.";
    const std::string unreadable = "Could not read --content-file at ";
    expectRefused("skill create N --parent x --content a --content-file /none", content);
    expectRefused("skill move x --to y --top-level", destination);
    expectRefused("skill move x", destination);
    expectRefusedByRun("skill ls x", "bundle must be a UUID.");
    expectRefusedByRun("skill stat x", "id must be a UUID.");
    expectRefusedByRun("skill create N --parent x --content-file /none", "parent must be a UUID.");
    for (const std::string& path : {directory, file("bytes", "a\xFF"), std::string("~/x")}) {
        expectRefusedByRun("skill create N --content-file " + path, unreadable + path + ".");
    }
    expectRefusedByRun("skill rename x N", "id must be a UUID.");
    expectRefusedByRun("skill move x --to y", "id must be a UUID.");
    expectRefusedByRun("skill move " + id + " --to y", "to must be a UUID.");
    expectRefusedByRun("skill remove x", "id must be a UUID.");
    for (const char* command : {"install", "uninstall"}) {
        expectRefusedByRun({"skill", command, "x", "--agent", "y"}, "id must be a UUID.");
        expectRefusedByRun({"skill", command, id, "--agent", "cursor"}, "agent must be one of: claude, codex.");
    }
    expectRefusedByRun("skill installed --agent CLAUDE", "agent must be one of: claude, codex.");
}

TEST_F(Skills, AreImportedFromOneOfThreePlaces) {
    const std::string nothing = "Pass a skill directory, --agent with --name, or --list.";
    const std::string listing = "--list takes no path, --agent, or --name.";
    const std::string both = "Pass either a path, or --agent with --name.";
    expectRefused("skill import", nothing);
    expectRefused("skill import --agent codex", nothing);
    expectRefused("skill import --name x", nothing);
    expectRefused({"skill", "import", "--agent", "claude", "--name", " \t"}, nothing);
    expectRefused("skill import --list x", listing);
    expectRefused("skill import --list --agent codex", listing);
    expectRefused("skill import --list --name x", listing);
    expectRefused("skill import x --agent codex", both);
    expectRefused("skill import x --name y", both);
    expectRefused("skill import --agent Claude --name x",
                  "The value 'Claude' is invalid for '--agent <agent>'. Please provide one of 'claude' or 'codex'.",
                  "--agent <agent>");

    const std::string here = std::filesystem::canonical(directory);
    const std::vector<std::pair<std::string, std::string>> paths{
        {"x", here + "/x"},  {"./x/", here + "/x"},
        {"", here},          {"../a/./b/../c", here.substr(0, here.rfind('/')) + "/a/c"},
        {"/a//b/.", "/a/b"}, {"~/.claude/x", "/home/u/.claude/x"},
        {"~", "/home/u"},    {"a\xFFz", here + "/a\uFFFDz"},
    };
    for (const auto& [path, sent] : paths) {
        CommandRow import = posts({"import", path}, "/api/skill/import", R"({"path":")" + sent + "\"}");
        import.setting.directory = directory;
        import.setting.environment["HOME"] = "/home/u/";
        expectRow(import);
    }
    CommandRow unspeakable = posts("import x", "/api/skill/import", R"({"path":")" + here + "/\uFFFD/x\"}");
    unspeakable.setting.directory = directory + "/\xFF";
    std::filesystem::create_directory(unspeakable.setting.directory);
    expectRow(unspeakable);
}

/// A person who answers the question of `remove` with `typed`.
CommandRow removal(const std::string& typed, Location where = Location::current()) {
    CommandRow row =
        posts("remove --if-revision r " + id, "/api/skill/item/" + lowerId + "/delete", R"({"ifRevision":"r"})", where);
    row.setting.input = Input::terminal(typed);
    row.out = "Deleting this will remove it from Orvane and uninstall the skill. Anything shared with other users will "
              "disappear from their Orvane, but their local copies will stay unchanged.\nContinue? [y/N] " +
              row.out;
    return row;
}

/// `row` when it ends at its question, with as many requests as before it.
CommandRow stopped(CommandRow row, const std::string& out, const std::string& message) {
    row.answers.pop_back();
    row.requests.pop_back();
    row.out = out;
    row.err = "Error: " + message + "\n";
    row.status = 1;
    return row;
}

TEST_F(Skills, AreRemovedWhenAPersonSaysSo) {
    for (const char* yes : {"y\n", " YES\t\n", "Yes"}) {
        expectRow(removal(yes));
    }
    const std::string question = removal("").out.substr(0, removal("").out.find("{"));
    for (const char* no : {"n\n", "\n", "", "yep\n", "y es\n"}) {
        expectRow(stopped(removal(no), question, "Deletion cancelled."));
    }
    for (const Input& input : {Input::pipe("y\n"), Input{}, Input::closed()}) {
        expectRow(stopped(withInput(removal(""), input), "",
                          "Deletion requires interactive confirmation from a terminal. Pass --force to skip it."));
    }
}

TEST_F(Skills, AreInstalledForAgents) {
    const std::string request = "POST" + item + "/install\n";
    expectReplies(
        "skill install " + id, request + "{}",
        {
            Reply(R"({"name":"a","kind":"bundle","id":"i","agents":["codex"]})", "installed bundle a → codex\n"),
            Reply(R"({"name":"pdf-tools","agents":["claude","codex"]})", "installed skill pdf-tools → claude, codex\n"),
            Reply(R"({"id":"abc"})", "installed skill abc: no agents affected\n"),
            Reply(R"({"name":1,"id":"i","kind":[],"agents":["x",1]})", "installed skill i: no agents affected\n"),
            Reply(R"({"name":"a\r\nb\tc ","agents":["d\ne"]})", "installed skill a  b c  → d e\n"),
            Reply("{}", "installed skill : no agents affected\n"),
            Reply("[ ]", "[ ]\n"),
            Reply("no", "no\n"),
        });
    expectRequests({
        row("skill install --agent claude " + id, request + R"({"agents":["claude"]})", "{}",
            "installed skill : no agents affected\n"),
        row("skill uninstall --agent codex " + id, "POST" + item + "/uninstall\n{\"agents\":[\"codex\"]}",
            R"({"name":"a","agents":["codex"]})", "uninstalled skill a → codex\n"),
        row("skill uninstall " + id, "POST" + item + "/uninstall\n{}", R"({"kind":"bundle","name":"writing"})",
            "uninstalled bundle writing: no agents affected\n"),
        row("skill refresh", "POST /api/skill/refresh\n{}", R"({"much":"more"})", "refreshed\n"),
    });
}

constexpr const char* conflict = R"({"error":"name_conflict","confirmationRequired":true,"message":"A\nis there."})";

/// An install that meets a conflict at a person's terminal, asks, and does it again.
CommandRow replacement(const std::string& typed, Answer second = answer(R"({"name":"a","agents":["codex"]})"),
                       Location where = Location::current()) {
    const std::string request = "POST" + item + "/install\n" + R"({"agents":["codex"])";
    return {.arguments = "skill install --agent codex " + id,
            .answers = {answer(409, conflict), std::move(second)},
            .requests = {request + "}", request + R"(,"replaceConflicts":true})"},
            .out = "A\nis there.\nReplace all and continue? [y/N] ",
            .setting = {.input = Input::terminal(typed)},
            .where = where};
}

TEST_F(Skills, ReplaceOthersWhenAPersonSaysSo) {
    for (const char* yes : {"Y\n", " yes \n", "YES"}) {
        CommandRow done = replacement(yes);
        done.out += "installed skill a → codex\n";
        expectRow(done);
    }
    for (const char* no : {"n\n", "\n", "", "yep\n"}) {
        expectRow(stopped(replacement(no), replacement(no).out, "Installation cancelled."));
    }
    for (const Input& input : {Input::pipe("y\n"), Input{}}) {
        expectRow(stopped(withInput(replacement(""), input), "",
                          "Name-conflicted installs require confirmation from an interactive terminal."));
    }
    CommandRow again = replacement("y\n", answer(409, conflict));
    again.err = "error: A\nis there.\n";
    again.status = 1;
    expectRow(again);
}

TEST_F(Skills, AskOnlyAboutAConflictOfNames) {
    const auto refused = [](int status, const std::string& body, const std::string& reported = "x",
                            Location where = Location::current()) {
        CommandRow row = stopped(replacement("y\n", {}, where), "", "");
        row.answers = {answer(status, body)};
        row.err = "error: " + reported + "\n";
        return row;
    };
    expectRows({
        refused(409, R"({"error":"name_conflict","confirmationRequired":false,"message":"x"})"),
        refused(409, R"({"error":"name_conflict","confirmationRequired":"true","message":"x"})"),
        refused(409, R"({"error":"Name_conflict","confirmationRequired":true,"message":"x"})"),
        refused(409, R"({"error":"name_conflict","confirmationRequired":true})", "name_conflict"),
        refused(409, "x"),
        refused(400, R"({"error":"name_conflict","confirmationRequired":true,"message":"x"})"),
        row("skill install --agent codex " + id, replacement("").requests.front(), conflict,
            "installed skill : no agents affected\n"),
    });
}

} // namespace
