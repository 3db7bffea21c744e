#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string path = "GET /api/nodes/" + id;

void expectCat(const std::vector<Reply>& replies, const Output& out = {}) {
    expectReplies("cat " + id, path + "?full=true&cliVerb=cat", replies, out);
}

void expectStat(const std::vector<Reply>& replies, const Output& out = {}) {
    expectReplies("stat " + id, path + "?meta=true&cliVerb=stat", replies, out);
}

TEST(Reading, PrintsTheBareTextInAPipe) {
    expectCat({
        Reply(R"({"name":"n","read":{"content":"a\r\nb"}})", "a\r\nb\n"),
        Reply(R"({"read":{"content":"a\n\n","head":{"content":"x"}}})", "a\n\n"),
        Reply(R"({"read":{"content":""}})", "\n"),
        Reply(R"({"read":{"content":"a\u0000\u001b[1m"}})", std::string("a\0\x1B[1m\n", 7)),
        Reply(R"({"read":{"head":{"content":"a\n"},"tail":{"content":"z"}}})", "a\n\n\n…\n\nz\n"),
        Reply(R"({"read":{"head":{"content":"a"},"tail":{"content":""}}})", "a\n\n…\n\n"),
        Reply(R"({"read":{"content":7,"head":{},"tail":{"content":"z\n"}}})", "z\n"),
        Reply(R"({"read":{"head":"a"}})", "{\"read\":{\"head\":\"a\"}}\n"),
        Reply(R"({"read":[]})", "{\"read\":[]}\n"),
        Reply("[]", "[]\n"),
        Reply("\xFF", "\xFF\n"),
        Reply(R"({"isContainer":false,"kind":"orvane_folder","read":{"content":"a"}})", "a\n"),
        Reply(R"({"kind":"orvane_context","read":{"content":"a"}})", "a\n"),
    });
    const std::string reply = R"({"read":{"content":"a"}})";
    expectRows({
        row("cat " + id, path + "?full=true&cliVerb=cat", reply, "a\n"),
        row("head " + id, path + "?headLines=10&cliVerb=head", reply, "a\n"),
        row("head -n 1 " + id, path + "?headLines=1&cliVerb=head", reply, "a\n"),
        row("tail " + id, path + "?tailLines=10&cliVerb=tail", reply, "a\n"),
        row("tail " + id + " --lines=20", path + "?tailLines=20&cliVerb=tail", reply, "a\n"),
    });
}

TEST(Reading, PassesALargeTextOn) {
    const std::string text(50'000'000, 'x');
    ScriptedService service({answer(R"({"read":{"content":")" + text + R"("}})")});
    EXPECT_TRUE(runTool({"cat", id}, {.waits = false}).out == text + "\n");
}

TEST(Reading, RefusesADirectoryBeforeAnythingIsPrinted) {
    const std::string hint = ". Use `ls` to list its contents.";
    expectFailed("cat " + id, {answer(R"({"name":"My\nfolder","kind":"orvane_folder","read":{"content":"a"}})")},
                 "cat: My folder: is a directory (kind orvane_folder)" + hint);
    expectFailed("head " + id, {answer(R"({"isContainer":true,"kind":"orvane_context"})")},
                 "head: " + id + ": is a directory (kind orvane_context)" + hint);
    expectFailed("tail " + id, {answer(R"({"isContainer":true,"name":"N"})")}, "tail: N: is a directory" + hint);
    for (const std::string kind : {"chatgpt_project", "integration_root", "obsidian_vault", "obsidian_folder",
                                   "apple_notes_folder", "local_folder", "sharepoint_site", "sharepoint_folder",
                                   "granola_folder", "read_ai_folder", "orvane_folder"}) {
        expectFailed("cat " + id, {answer(R"({"isContainer":"no","name":"N","kind":")" + kind + "\"}")},
                     "cat: N: is a directory (kind " + kind + ")" + hint);
    }
    expectFailed("cat " + id, {answer(R"({"isContainer":true,"name":"N\r\n\tM\u0000x","kind":"k\n\u0000l\tm\rn"})")},
                 std::string("cat: N   M\0x: is a directory (kind k \0l m n)", 44) + hint);
}

TEST(Reading, ShowsAHeaderAtATerminal) {
    expectCat(
        {
            Reply(R"({"id":"AB","kind":"k","name":")" + std::string(101, 'n') +
                      R"(","sourceOwner":{"email":"e"},"updatedAt":"Mar 7, 2024, 2:05 PM X","read":{"content":"a"}})",
                  "\x1B[36mab\x1B[0m  \x1B[2mk\x1B[0m  \x1B[32me\x1B[0m  \x1B[2mMar  7  2024\x1B[0m  \x1B[1m" +
                      std::string(99, 'n') + "…\x1B[0m\n\na\n"),
            Reply("{\"read\":\"\x7F\"}", "\x1B[32mme\x1B[0m\n\n{\"read\":\"\\u007f\"}\n"),
        },
        Output::terminal());
}

TEST(Reading, ChecksItsInput) {
    expectRefused("cat x", "Invalid UUID: x");
    expectRefused("stat grp_x", "Invalid UUID: grp_x");
    expectRefused("head x -n 0", "Invalid UUID: x");
    expectRefused("tail x -n 0", "Invalid UUID: x");
    expectRefused("head " + id + " -n 0", "lines must be greater than 0.");
    expectRefused("tail " + id + " --lines=-1", "lines must be greater than 0.");
}

TEST(Stat, ShowsThePlaceInTheTreeAndTheFacts) {
    expectStat({
        Reply(R"({"id":"n1","name":"Plan\tA","kind":"orvane_context",
                  "ancestors":[{"id":"r","name":"Root","kind":"integration_root"},{"name":"Föld","id":"f"}],
                  "isContainer":false,"childCounts":{"folders":3},"initiated":"agent","executionMode":"",
                  "sourceOwner":{"isCurrentUser":true,"email":"a@b.c"},"originalUpdatedAt":"soon",
                  "updatedAt":"x","originalCreatedAt":"Mar 7, 2024, 2:05 PM X"})",
              "Root          integration_root  r\n"
              "└─ Föld                         f\n"
              "   └─ Plan A  orvane_context    n1  ← here\n"
              "\n"
              "owner      you · a@b.c\n"
              "type       orvane_context\n"
              "updated    soon\n"
              "created    Mar  7  2024\n"
              "initiated  agent\n"),
        Reply(R"({"name":"F","isContainer":true,"updatedAt":"u","originalUpdatedAt":"",
                  "childCounts":{"contexts":1,"folders":2,"transcripts":0,"notes":"4"},"sourceOwner":{}})",
              "F      ← here\n\nowner     ?\ntype      \nchildren  2 folders, 1 contexts\n"),
        Reply(R"({"isContainer":true,"childCounts":{"notes":0},"createdAt":"c","ancestors":[1],"updatedAt":"u",
                  "sourceOwner":{"isCurrentUser":true}})",
              "      ← here\n\nowner    you\ntype     \nupdated  u\n"),
        Reply("[1]", "[1]\n"),
    });
    expectStat({Reply(R"({"id":"i","name":"n","kind":"k","ancestors":[{"id":"p","name":"pp","kind":"kk"}]})",
                      "\x1B[2m\x1B[0m\x1B[1mpp\x1B[0m    \x1B[2mkk\x1B[0m  \x1B[36mp\x1B[0m\n"
                      "\x1B[2m└─ \x1B[0m\x1B[1mn\x1B[0m  \x1B[2mk\x1B[0m   \x1B[36mi\x1B[0m  "
                      "\x1B[1;33m← here\x1B[0m\n\n"
                      "\x1B[2mowner\x1B[0m  \x1B[32mme\x1B[0m\n\x1B[2mtype \x1B[0m  k\n")},
               Output::terminal());
    expectRows({requestRow("stat --json " + id, path + "?meta=true&cliVerb=stat")});
}

} // namespace
