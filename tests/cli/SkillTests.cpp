#include <filesystem>

#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

const std::string itemPath = "/api/skill/item/" + lowerId;
const std::string item = " " + itemPath;

class Skills : public TemporaryFiles {};

/// A run of `skill <words>` that posts `body` to `path` and prints the answer as it came.
CommandRow posts(const Words& words, const std::string& path, const std::string& body,
                 Location where = Location::current()) {
    return requestRow(with("skill", words), "POST " + path + "\n" + body, where);
}

TEST_F(Skills, AreAskedForInLowerCase) {
    const std::string create = "/api/skill/create";
    const std::string body = file("~", "\xEF\xBB\xBF a\r\n\n");
    CommandRow fromFile = posts("create N --content-file ~", create,
                                "{\"kind\":\"skill\",\"name\":\"N\",\"content\":\"\xEF\xBB\xBF a\\r\\n\\n\"}");
    fromFile.setting.directory = directory;
    expectRows({
        requestRow("skill ls", "GET /api/skill/roots"),
        requestRow("skill ls " + id, "GET" + item + "/children"),
        requestRow("skill stat " + id, "GET" + item),
        posts({"create", " "}, create, R"({"kind":"skill","name":" "})"),
        posts({"create", "N", "--content", "", "--parent", other, "--description", ""}, create,
              R"({"kind":"skill","name":"N","parentId":")" + lowerOther + R"(","description":"","content":""})"),
        fromFile,
        posts("bundle create N", create, R"({"kind":"bundle","name":"N"})"),
        posts({"rename", id, ""}, itemPath + "/rename", R"({"name":""})"),
        posts({"rename", id, "N", "--if-revision", ""}, itemPath + "/rename", R"({"name":"N","ifRevision":""})"),
        posts("move " + id + " --to " + other, itemPath + "/move", R"({"parentId":")" + lowerOther + "\"}"),
        posts("move " + id + " --top-level --if-revision r", itemPath + "/move",
              R"({"topLevel":true,"ifRevision":"r"})"),
        posts("remove --force " + id, itemPath + "/delete", "{}"),
        requestRow("skill installed", "GET /api/skill/installed"),
        requestRow("skill installed --agent codex", "GET /api/skill/installed?agent=codex"),
        requestRow("skill import --list", "GET /api/skill/importable"),
        posts({"import", "--agent", "claude", "--name", " \u00A0x y\n"}, "/api/skill/import",
              R"({"agent":"claude","name":"x y"})"),
    });
}

TEST_F(Skills, AreCheckedInOrder) {
    const std::string destination = "Pass exactly one destination: --to <bundle-id> or --top-level.";
    expectRefused("skill create N --parent x --content a --content-file /none",
                  "Pass at most one of --content or --content-file.");
    expectRefused("skill move x --to y --top-level", destination);
    expectRefused("skill move x", destination);
    expectRefusedByRun("skill ls x", "bundle must be a UUID.");
    expectRefusedByRun("skill create N --parent x --content-file /none", "parent must be a UUID.");
    for (const std::string& path : {directory, file("bytes", "a\xFF"), std::string("~/x")}) {
        expectRefusedByRun("skill create N --content-file " + path, "Could not read --content-file at " + path + ".");
    }
    for (const char* words :
         {"stat x", "rename x N", "move x --to y", "remove x", "install x --agent y", "uninstall x --agent y"}) {
        expectRefusedByRun(with("skill", words), "id must be a UUID.");
    }
    expectRefusedByRun("skill move " + id + " --to y", "to must be a UUID.");
    for (const std::string& words : {"install " + id, "uninstall " + id, std::string("installed")}) {
        expectRefusedByRun("skill " + words + " --agent CLAUDE", "agent must be one of: claude, codex.");
    }
}

TEST_F(Skills, AreImportedFromOneOfThreePlaces) {
    const std::string nothing = "Pass a skill directory, --agent with --name, or --list.";
    expectRefused("skill import --agent codex", nothing);
    expectRefused("skill import --name x", nothing);
    expectRefused({"skill", "import", "--agent", "claude", "--name", " \t"}, nothing);
    for (const char* more : {"x", "--agent codex", "--name x"}) {
        expectRefused(with("skill import --list", more), "--list takes no path, --agent, or --name.");
    }
    for (const char* more : {"--agent codex", "--name x"}) {
        expectRefused(with("skill import x", more), "Pass either a path, or --agent with --name.");
    }

    const std::string here = std::filesystem::canonical(directory);
    const std::vector<std::pair<std::string, std::string>> paths{
        {"", here},
        {"./a/../x/", here + "/x"},
        {"~/.claude/x", "/home/u/.claude/x"},
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
    CommandRow row = posts("remove --if-revision r " + id, itemPath + "/delete", R"({"ifRevision":"r"})", where);
    row.setting.input = Input::terminal(typed);
    row.out = "Deleting this will remove it from Orvane and uninstall the skill. Anything shared with other users will "
              "disappear from their Orvane, but their local copies will stay unchanged.\nContinue? [y/N] " +
              row.out;
    return row;
}

TEST_F(Skills, AreRemovedWhenAPersonSaysSo) {
    expectRow(removal("y\n"));
    const std::string question = removal("").out.substr(0, removal("").out.find("{"));
    expectRow(stopped(removal("n\n"), question, "Deletion cancelled."));
    expectRow(stopped(withInput(removal(""), Input::closed()), "",
                      "Deletion requires interactive confirmation from a terminal. Pass --force to skip it."));
}

TEST_F(Skills, AreInstalledForAgents) {
    const std::string request = "POST" + item + "/install\n";
    expectReplies(
        "skill install " + id, request + "{}",
        {
            Reply(R"({"name":"a","kind":"bundle","id":"i","agents":["codex"]})", "installed bundle a → codex\n"),
            Reply(R"({"name":"pdf-tools","agents":["claude","codex"]})", "installed skill pdf-tools → claude, codex\n"),
            Reply(R"({"name":1,"id":"i","kind":[],"agents":["x",1]})", "installed skill i: no agents affected\n"),
            Reply(R"({"name":"a\r\nb\tc ","agents":["d\ne"]})", "installed skill a  b c  → d e\n"),
            Reply("no", "no\n"),
        });
    expectRows({
        row("skill install --agent claude " + id, request + R"({"agents":["claude"]})", "{}",
            "installed skill : no agents affected\n"),
        row("skill uninstall --agent codex " + id, "POST" + item + "/uninstall\n{\"agents\":[\"codex\"]}",
            R"({"name":"a","agents":["codex"]})", "uninstalled skill a → codex\n"),
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
    CommandRow done = replacement("Y\n");
    done.out += "installed skill a → codex\n";
    expectRow(done);
    expectRow(stopped(replacement("n\n"), replacement("").out, "Installation cancelled."));
    expectRow(stopped(withInput(replacement(""), Input::pipe("y\n")), "",
                      "Name-conflicted installs require confirmation from an interactive terminal."));
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
