#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string id = "7F1B103C-df15-42b0-aab4-77d26415479c";

CommandRow readRow(std::vector<std::string> arguments, const std::string& query, std::string body, std::string out) {
    return {.arguments = std::move(arguments),
            .answers = {answer(std::move(body))},
            .requests = {"GET /api/nodes/" + id + "?" + query},
            .out = std::move(out)};
}

CommandRow catRow(std::string body, std::string out) {
    return readRow({"cat", id}, "full=true&cliVerb=cat", std::move(body), std::move(out));
}

CommandRow statRow(std::string body, std::string out) {
    return readRow({"stat", id}, "meta=true&cliVerb=stat", std::move(body), std::move(out));
}

CommandRow onTerminal(CommandRow row) {
    row.setting.out = Output::terminal();
    return row;
}

TEST(Reading, PrintsTheBareTextInAPipe) {
    expectRows({
        catRow(R"({"name":"n","read":{"content":"a\r\nb"}})", "a\r\nb\n"),
        catRow(R"({"read":{"content":"a\n\n","head":{"content":"x"}}})", "a\n\n"),
        catRow(R"({"read":{"content":""}})", "\n"),
        catRow(R"({"read":{"content":"a\u0000\u001b[1m"}})", std::string("a\0\x1B[1m\n", 7)),
        catRow(R"({"read":{"head":{"content":"a\n"},"tail":{"content":"z"}}})", "a\n\n\n…\n\nz\n"),
        catRow(R"({"read":{"head":{"content":"a"},"tail":{"content":""}}})", "a\n\n…\n\n"),
        catRow(R"({"read":{"content":7,"head":{},"tail":{"content":"z\n"}}})", "z\n"),
        catRow(R"({"read":{"head":"a"}})", R"({"read":{"head":"a"}})"
                                           "\n"),
        catRow(R"({"read":[]})", R"({"read":[]})"
                                 "\n"),
        catRow("[]", "[]\n"),
        catRow("\xFF", "\xFF\n"),
        readRow({"head", id}, "headLines=10&cliVerb=head", R"({"read":{"content":"a"}})", "a\n"),
        readRow({"head", "-n", "1", id}, "headLines=1&cliVerb=head", R"({"read":{"content":"a"}})", "a\n"),
        readRow({"tail", id, "--lines=20"}, "tailLines=20&cliVerb=tail", R"({"read":{"content":"a"}})", "a\n"),
    });
    expectServiceRefusal({"cat", id});
}

TEST(Reading, PassesALargeTextOn) {
    const std::string text(50'000'000, 'x');
    ScriptedService service({answer(R"({"read":{"content":")" + text + R"("}})")});
    EXPECT_TRUE(runTool({"cat", id}).out == text + "\n");
}

TEST(Reading, RefusesADirectoryBeforeAnythingIsPrinted) {
    const auto refuse = [](const char* verb, const std::string& body, const std::string& message) {
        expectFailed({verb, id}, {answer(body)}, message + ". Use `ls` to list its contents.");
    };
    refuse("cat", R"({"name":"My\nfolder","kind":"orvane_folder","read":{"content":"a"}})",
           "cat: My folder: is a directory (kind orvane_folder)");
    refuse("head", R"({"isContainer":true,"kind":"orvane_context"})",
           "head: " + id + ": is a directory (kind orvane_context)");
    refuse("tail", R"({"isContainer":true,"name":"N"})", "tail: N: is a directory");
    refuse("cat", R"({"isContainer":"no","kind":"obsidian_vault","name":"N"})",
           "cat: N: is a directory (kind obsidian_vault)");
    expectRows({
        catRow(R"({"isContainer":false,"kind":"orvane_folder","read":{"content":"a"}})", "a\n"),
        catRow(R"({"kind":"orvane_context","read":{"content":"a"}})", "a\n"),
    });
}

TEST(Reading, ShowsAHeaderAtATerminal) {
    const std::string name(101, 'n');
    expectRows({
        onTerminal(catRow(R"({"id":"AB","kind":"k","name":")" + name +
                              R"(","sourceOwner":{"email":"e"},"updatedAt":"Mar 7, 2024, 2:05 PM X",
                              "read":{"content":"a"}})",
                          "\x1B[36mab\x1B[0m  \x1B[2mk\x1B[0m  \x1B[32me\x1B[0m  \x1B[2mMar  7  2024\x1B[0m  \x1B[1m" +
                              std::string(99, 'n') + "…\x1B[0m\n\na\n")),
        onTerminal(catRow(R"({"read":1})", "\x1B[32mme\x1B[0m\n\n{\"read\":1}\n")),
    });
}

TEST(Reading, ChecksItsInput) {
    expectRefused({"cat", "x"}, "Invalid UUID: x", "orvane-cli cat <id>");
    expectRefused({"stat", "grp_x"}, "Invalid UUID: grp_x", "orvane-cli stat <id> [--json]");
    expectRefused({"head", "x", "-n", "0"}, "Invalid UUID: x", "orvane-cli head <id> [--lines <lines>]");
    expectRefused({"head", id, "-n", "0"}, "lines must be greater than 0.", "orvane-cli head <id> [--lines <lines>]");
    expectRefused({"tail", id, "--lines=-1"}, "lines must be greater than 0.",
                  "orvane-cli tail <id> [--lines <lines>]");
}

TEST(Stat, ShowsThePlaceInTheTreeAndTheFacts) {
    expectRows({
        statRow(R"({"id":"n1","name":"Plan\tA","kind":"orvane_context",
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
        statRow(R"({"name":"F","isContainer":true,"updatedAt":"u","originalUpdatedAt":"",
                    "childCounts":{"contexts":1,"folders":2,"transcripts":0,"notes":"4"},"sourceOwner":{}})",
                "F      ← here\n\nowner     ?\ntype      \nchildren  2 folders, 1 contexts\n"),
        statRow(R"({"isContainer":true,"childCounts":{"notes":0},"createdAt":"c","ancestors":[1],"updatedAt":"u",
                    "sourceOwner":{"isCurrentUser":true}})",
                "      ← here\n\nowner    you\ntype     \nupdated  u\n"),
        statRow("[1]", "[1]\n"),
        readRow({"stat", "--json", id}, "meta=true&cliVerb=stat", "{ }", "{ }\n"),
        onTerminal(statRow(R"({"id":"i","name":"n","kind":"k","ancestors":[{"id":"p","name":"pp","kind":"kk"}]})",
                           "\x1B[2m\x1B[0m\x1B[1mpp\x1B[0m    \x1B[2mkk\x1B[0m  \x1B[36mp\x1B[0m\n"
                           "\x1B[2m└─ \x1B[0m\x1B[1mn\x1B[0m  \x1B[2mk\x1B[0m   \x1B[36mi\x1B[0m  "
                           "\x1B[1;33m← here\x1B[0m\n\n"
                           "\x1B[2mowner\x1B[0m  \x1B[32mme\x1B[0m\n\x1B[2mtype \x1B[0m  k\n")),
    });
    expectServiceRefusal({"stat", "--json", id});
}

} // namespace
