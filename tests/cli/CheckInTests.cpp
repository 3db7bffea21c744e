#include <gtest/gtest.h>

#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string usage = "orvane-cli check-in [--recent-limit <recent-limit>] [--hook]";

CommandRow hookRow(std::string body, std::string briefing) {
    return {.arguments = {"check-in", "--hook"},
            .answers = {answer(std::move(body))},
            .requests = {"GET /api/check-in?recentLimit=10"},
            .out = briefing.empty() ? ""
                                    : R"({"hookSpecificOutput":{"hookEventName":"SessionStart","additionalContext":")"
                                      R"(--- ORVANE BRIEFING (auto-injected) ---\n)" +
                                          briefing + "\"}}\n"};
}

TEST(CheckIn, PrintsTheAnswerUnchanged) {
    expectRows({
        {.arguments = {"check-in"},
         .answers = {answer("not JSON")},
         .requests = {"GET /api/check-in?recentLimit=10"},
         .out = "not JSON\n"},
        {.arguments = {"check-in", "--recent-limit=25"},
         .answers = {answer("{ \"a\" : 1 }")},
         .requests = {"GET /api/check-in?recentLimit=25"},
         .out = "{ \"a\" : 1 }\n"},
    });
    expectServiceRefusal({"check-in"});
}

TEST(CheckIn, ChecksItsLimitBeforeAnythingElse) {
    const std::string message = "recent-limit must be between 1 and 25.";
    expectRefused({"check-in", "--recent-limit", "26"}, message, usage);
    expectRefused({"check-in", "--recent-limit", "0", "--hook"}, message, usage);
}

TEST(CheckIn, RendersTheBriefing) {
    expectRows({
        hookRow(R"({"profile":{"available":true,"sections":[
                      {"name":"about_me","value":"  Likes \"tea\"\n"},
                      {"name":"dateOfBirth","value":1990},
                      {"name":"empty","value":" \n"},
                      {"name":"noCards","value":[]},
                      {"name":"people","value":[{"role":"x","fullName":"Ann","age":3},{"n":1},{"b":"2","a":""}]},
                      {"name":"odd","value":{"b":[1.50,1e20,185.25362004445742,true,null],"a":{}}},
                      {"name":"none"},{"value":"x"}]}})",
                R"(\n## Profile\n### About Me\nLikes \"tea\"\n### Date Of Birth\n1990\n### People\n)"
                R"(- Full Name: Ann; Role: x\n- B: 2\n### Odd\n{\n  \"a\": {},\n  \"b\": [\n    1.5,\n)"
                R"(    100000000000000000000,\n    185.25362004445742,\n    true,\n    null\n  ]\n})"),
        hookRow(R"({"profile":{"available":true,"sections":[]},"recentActivity":{"documents":[
                      {"name":"Plan","kind":"context","displayTimestamp":"Mar 7, 2024, 2:05 PM PST","id":"7f","label":"L"},
                      {},{"name":1,"displayTimestamp":"","id":"","label":""},
                      {"name":"a\nb","kind":"c\r","displayTimestamp":"d\te","id":"f\n","label":"g\r\nh"}]}})",
                R"(\n## Recent Activity\n- Plan [context] updated Mar 7, 2024, 2:05 PM PST id: 7f\n  L\n)"
                R"(- Untitled [unknown]\n- Untitled [unknown] id: \n)"
                R"(- a b [c ] updated d e id: f \n  g  h)"),
        hookRow(R"({"profile":{"available":false,"sections":[{"name":"a","value":"b"}]}})", ""),
        hookRow(R"({"profile":{"available":true,"sections":[1]},"recentActivity":{"documents":[]}})", ""),
        hookRow("{}", ""),
        hookRow("[]", ""),
        hookRow("not JSON", ""),
    });
}

TEST(CheckIn, NeverFailsAnAgentsStart) {
    const ToolResult notRunning = runTool({"check-in", "--hook"});
    EXPECT_EQ(notRunning.status, 0);
    EXPECT_EQ(notRunning.out + notRunning.err, "");

    CommandRow refused = hookRow("", "");
    refused.answers = {answer(500, R"({"message":"busy"})")};
    refused.err = "error: busy\n";
    expectRow(refused);

    CommandRow cut = hookRow("", "");
    cut.answers = {cutAnswer("HTTP/1.1 200 OK\r\n")};
    expectRow(cut);
}

} // namespace
