#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

const std::string package = " /api/skill/item/" + lowerId + "/package";
const std::string valid = R"({"path":"p","packageHash":"9f2c1ab07de4ffff","validationStatus":"valid"})";

class SkillFiles : public TemporaryFiles {
protected:
    /// An edit by `skill file <words>` of `id`, which sends `body` and is reported with `verb`.
    static CommandRow edit(const std::string& word, const Words& options, const std::string& operation,
                           const std::string& body, const std::string& verb, Location where = Location::current()) {
        return row(with("skill file " + word + " " + id, options), "POST" + package + "/" + operation + "\n" + body,
                   valid, verb + " p — package 9f2c1ab07de4, valid\n", where);
    }
};

TEST_F(SkillFiles, AreReadAndEdited) {
    const std::string text = file("text", "a\r\n\n");
    const std::string sent = R"({"path":"a b/../c","text":"a\r\n\n"})";
    expectRows({
        requestRow("skill file ls " + id, "GET" + package),
        edit("tee", {"a b/../c", "--from-file", text}, "write", sent, "wrote"),
        withInput(edit("tee", {"a b/../c"}, "write", sent, "wrote"), Input::pipe("a\r\n\n")),
        withInput(edit("tee", {"a b/../c"}, "write", R"({"path":"a b/../c","text":"typed\n"})", "wrote"),
                  Input::terminal("typed\n")),
        edit("tee", "p", "write", R"({"path":"p","text":""})", "wrote"),
        edit("sed", {"p", "--old", "", "--new=-x"}, "sed", R"({"path":"p","old":"","new":"-x","all":false})", "wrote"),
        edit("sed", {"p", "--all", "--old-file", text, "--new-file", file("new", "b\n")}, "sed",
             R"({"path":"p","old":"a\r\n\n","new":"b\n","all":true})", "wrote"),
        edit("mkdir", "p", "mkdir", R"({"path":"p"})", "created"),
        edit("mv", "p --to q", "move", R"({"path":"p","to":"q"})", "moved"),
        edit("rm", "SKILL.md", "delete", R"({"path":"SKILL.md","recursive":false})", "deleted"),
        edit("rm", "-r p", "delete", R"({"path":"p","recursive":true})", "deleted"),
    });
}

TEST_F(SkillFiles, ArePrintedAsTheyAre) {
    expectReplies("skill file cat " + id, "GET" + package + "/file?path=SKILL.md",
                  {
                      Reply(R"({"text":"a\n\nb\n"})", "a\n\nb\n"),
                      Reply(R"({"text":"a\r"})", "a\r\n"),
                      Reply(R"({"text":""})", "\n"),
                      Reply(R"({"text":null})", "{\"text\":null}\n"),
                      Reply("no", "no\n"),
                  });
    expectRows({row({"skill", "file", "cat", id, "a b&c"}, "GET" + package + "/file?path=a%20b%26c", R"({"text":"x"})",
                    "x\n")});
}

TEST_F(SkillFiles, MayStayBroken) {
    const std::string warning =
        "warning: the package is not installable in this state; run `skill validate` for details\n";
    expectReplies(
        "skill file mkdir " + id + " p", "POST" + package + "/mkdir\n{\"path\":\"p\"}",
        {
            Reply(R"({"path":"p","packageHash":"12345678","validationStatus":"invalid"})",
                  "created p — package 12345678, invalid\n", warning),
            Reply(R"({"packageHash":"éééééééééééééé","validationStatus":"Valid"})",
                  "created  — package éééééééééééé, Valid\n", warning),
            Reply(R"({"path":1,"packageHash":[],"validationStatus":true})", "created  — package , unknown\n", warning),
            Reply(R"({"path":"a\nb","packageHash":"1\r\n2","validationStatus":"valid\t"})",
                  "created a b — package 1  2, valid \n", warning),
            Reply("no", "no\n"),
        });
    CommandRow onlySeen =
        row("skill validate " + id, "GET" + package + "/validate", R"({"validationStatus":"in\nvalid"})", "in valid\n");
    onlySeen.status = 1;
    expectRow(onlySeen);
    expectReplies("skill validate " + id, "GET" + package + "/validate",
                  {
                      Reply(R"({"validationStatus":"valid","more":"x"})", "valid\n"),
                      Reply(R"({"validationStatus":1})", "{\"validationStatus\":1}\n"),
                      Reply("\"invalid\"", "\"invalid\"\n"),
                  });
}

TEST_F(SkillFiles, AreCheckedInOrder) {
    const std::string oldTexts = "Pass exactly one of --old or --old-file.";
    const std::string newTexts = "Pass exactly one of --new or --new-file.";
    expectRefused("skill file sed x p --old a --old-file /none --new a --new-file b", oldTexts);
    expectRefused("skill file sed x p --new c", oldTexts);
    expectRefused({"skill", "file", "sed", "x", "p", "--old", "a", "--new", "", "--new-file", "/none"}, newTexts);
    expectRefused("skill file sed x p --old-file /none", newTexts);
    const std::string bytes = file("bytes", "a\xFF");
    const std::string sed = "skill file sed " + id + " p ";
    expectRefusedByRun(sed + "--old-file /none --new-file /none", "Could not read --old-file.");
    expectRefusedByRun(sed + "--old a --new-file " + bytes, "Could not read --new-file.");
    const std::string tee = "skill file tee " + id + " p";
    expectRefusedByRun(tee + " --from-file ~/none", "Could not read --from-file at ~/none.");
    expectRefusedByRun(tee, "stdin was not valid UTF-8.", {.input = Input::pipe("a\xFF")});
    for (const char* rest :
         {"file ls x", "file cat x", "file tee x p --from-file /none", "file mkdir x p",
          "file sed x p --old-file /none --new b", "file mv x p --to q", "file rm x p", "validate x"}) {
        expectRefusedByRun("skill " + std::string(rest), "id must be a UUID.");
    }
}

} // namespace
