#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const Words hook = "check-in --hook";
const std::string request = "GET /api/check-in?recentLimit=10";

/// An answer and the briefing that an agent gets, as the inside of a JSON text.
Reply briefed(std::string body, const std::string& briefing, Location where = Location::current()) {
    return Reply(std::move(body),
                 R"({"hookSpecificOutput":{"hookEventName":"SessionStart","additionalContext":")"
                 R"(--- ORVANE BRIEFING (auto-injected) ---\n)" +
                     briefing + "\"}}\n",
                 "", where);
}

TEST(CheckIn, PrintsTheAnswerUnchanged) {
    expectRows({
        requestRow("check-in", request),
        requestRow("check-in --recent-limit=25", "GET /api/check-in?recentLimit=25"),
        row("check-in --recent-limit 1", "GET /api/check-in?recentLimit=1", "not JSON", "not JSON\n"),
    });
}

TEST(CheckIn, ChecksItsLimitBeforeAnythingElse) {
    const std::string message = "recent-limit must be between 1 and 25.";
    expectRefused("check-in --recent-limit 26", message);
    expectRefused("check-in --recent-limit 0 --hook", message);
}

TEST(CheckIn, RendersTheBriefing) {
    expectReplies(
        hook, request,
        {
            briefed(R"({"profile":{"available":true,"sections":[
                      {"name":"about_me","value":"  Likes\n \"tea\"\n"},
                      {"name":"dateOfBirth","value":1990},
                      {"name":"empty","value":" \n"},
                      {"name":"noCards","value":[]},
                      {"name":"people\nx","value":[{"role":"x","fullName":"Ann\r\n- Eve","age":3},{"n":1},{"b\tc":"2","a":""}]},
                      {"name":"odd","value":{"b":[1.50,1e20,185.25362004445742,true,null],"a":{}}},
                      {"name":"none"},{"value":"x"}]}})",
                    R"(\n## Profile\n### About Me\nLikes\n \"tea\"\n### Date Of Birth\n1990\n### People X\n)"
                    R"(- Full Name: Ann  - Eve; Role: x\n- B C: 2\n### Odd\n{\n  \"a\": {},\n  \"b\": [\n    1.5,\n)"
                    R"(    100000000000000000000,\n    185.25362004445742,\n    true,\n    null\n  ]\n})"),
            briefed(R"({"profile":{"available":true,"sections":[]},"recentActivity":{"documents":[
                      {"name":"Plan","kind":"context","displayTimestamp":"Mar 7, 2024, 2:05 PM PST","id":"7f","label":"L"},
                      {},{"name":1,"displayTimestamp":"","id":"","label":""},
                      {"name":"a\nb","kind":"c\r","displayTimestamp":"d\te","id":"f\n","label":"g\r\nh"}]}})",
                    R"(\n## Recent Activity\n- Plan [context] updated Mar 7, 2024, 2:05 PM PST id: 7f\n  L\n)"
                    R"(- Untitled [unknown]\n- Untitled [unknown] id: \n)"
                    R"(- a b [c ] updated d e id: f \n  g  h)"),
            Reply(R"({"profile":{"available":false,"sections":[{"name":"a","value":"b"}]}})", ""),
            Reply(R"({"profile":{"sections":[{"name":"a","value":"b"}]}})", ""),
            Reply(R"({"profile":{"available":true,"sections":[1]},"recentActivity":{"documents":[]}})", ""),
            Reply("{}", ""),
            Reply("[]", ""),
            Reply("not JSON", ""),
        });
}

TEST(CheckIn, NeverFailsAnAgentsStart) {
    const ToolResult notRunning = runTool(hook);
    EXPECT_EQ(notRunning.status, 0);
    EXPECT_EQ(notRunning.out + notRunning.err, "");
    expectRow({.arguments = hook,
               .answers = {answer(500, R"({"message":"busy"})")},
               .requests = {request},
               .err = "error: busy\n"});
    expectRow({.arguments = hook, .answers = {cutAnswer("HTTP/1.1 200 OK\r\n")}, .requests = {request}});
}

} // namespace
