// What is known about skills, and what is said of them: suggestions, analytics, feedback.
#include "support/CommandRow.h"

using namespace testsupport;

namespace {

TEST(SkillSuggestion, PassesOnWhatTheServiceSays) {
    const std::string path = " /api/skill/suggestion";
    const std::string update = "update-0123456789abcdef";
    const std::string create = "create-0123456789abcdef";
    const std::vector<CommandRow> rows{
        requestRow("skill suggestion ls", "GET" + path),
        row("skill suggestion ls", "GET" + path, "", "\n"),
        requestRow("skill suggestion show " + update, "GET" + path + "/" + update),
        requestRow("skill suggestion apply " + create, "POST" + path + "/" + create + "/apply\n{}"),
    };
    for (const CommandRow& row : rows) {
        expectRow(row);
        for (const std::string body : {" { \"error\":\"stale_suggestion\",\"message\":\"x\" }\r\n\x1B\xFF", ""}) {
            CommandRow refused = row;
            refused.answers = {answer(400, body)};
            refused.out = "";
            refused.err = body + "\n";
            refused.status = 1;
            expectRow(refused);
        }
    }
    for (const char* wrong : {"update-0123456789ABCDEF", "update-0123456789abcde", "update-0123456789abcdef0",
                              "delete-0123456789abcdef", "update-g123456789abcdef", "update 0123456789abcdef", ""}) {
        for (const char* command : {"show", "apply"}) {
            expectRefused({"skill", "suggestion", command, wrong},
                          "suggestion-id must be update- or create- followed by 16 lowercase hex characters.");
        }
    }
}

TEST(SkillAnalytics, SendsWhatIsGivenInOrder) {
    const Words one = "skill analytics --people-offset 1 --people-limit 2 --feedback-limit 3 --recent-limit 4 n";
    const Words all = "skill analytics --people-offset 0 --people-limit 1 --trend-skill-limit 10 --skill-offset 9999 "
                      "--skill-limit 99 --source-kind a_1 --team a+b --timezone Europe/Berlin --until 2025-13-45 "
                      "--since 9999-00-99 --granularity hour";
    const std::string path = "GET /api/skill/analytics?granularity=";
    expectRows({
        requestRow("skill analytics", path + "day"),
        requestRow({"skill", "analytics", " \n my skill\t"}, path + "day&skillName=my%20skill"),
        requestRow(all, path + "hour&since=9999-00-99&until=2025-13-45&timezone=Europe/Berlin&teamId=a%2Bb&sourceKind="
                               "a_1&skillLimit=99&skillOffset=9999&trendSkillLimit=10&peopleLimit=1&peopleOffset=0"),
        requestRow(with(one, {"--feedback-cursor", " b ", "--recent-cursor", "\ta"}),
                   path + "day&skillName=n&recentLimit=4&recentCursor=%09a&feedbackLimit=3&feedbackCursor=%20b%20&"
                          "peopleLimit=2&peopleOffset=1"),
    });
}

std::string repeated(std::size_t count, const std::string& character = "e\u0301") {
    std::string text;
    while (count-- > 0) {
        text += character;
    }
    return text;
}

/// One rung of the ladder of checks.
struct Rung {
    std::string message;
    std::vector<Words> refused;
    std::vector<Words> accepted;
    Location where = Location::current();
};

TEST(SkillAnalytics, ClimbsALadderOfChecks) {
    const std::string day = " must be a yyyy-mm-dd local day.";
    const std::string range = " must be between 1 and 100.";
    const std::string offset = " must be between 0 and 10000.";
    const Words name{" " + repeated(200) + "\n"};
    const std::vector<Rung> ladder{
        Rung{"skill-name must not be empty.", {{" \u2003\n"}}, {name}},
        Rung{"granularity must be hour, day, week, month, or year.", {"--granularity Day"}, {"--granularity year"}},
        Rung{"timezone must be a valid IANA timezone.", {"--timezone x", {"--timezone", ""}}, {"--timezone UTC"}},
        Rung{"since" + day, {"--since 2025-1-1", "--since 2025-01-011", "--since 2025/01/01"}, {"--since 0000-00-00"}},
        Rung{"until" + day, {"--until 20250-1-01", "--until 2025-01-0:", {"--until", ""}}, {"--until 2025-99-99"}},
        Rung{"skill-limit" + range, {"--skill-limit 0", "--skill-limit 101"}, {"--skill-limit 1", "--skill-limit 100"}},
        Rung{"recent-limit" + range, {"--recent-limit 0", "--recent-limit 101"}, {"n --recent-limit 100"}},
        Rung{"feedback-limit" + range, {"--feedback-limit 0", "--feedback-limit 101"}, {"n --feedback-limit 100"}},
        Rung{"people-limit" + range, {"--people-limit 0", "--people-limit 101"}, {"n --people-limit 100"}},
        Rung{"skill-offset" + offset, {"--skill-offset=-1", "--skill-offset 10001"}, {"--skill-offset 10000"}},
        Rung{"people-offset" + offset, {"--people-offset=-1", "--people-offset 10001"}, {"n --people-offset 10000"}},
        Rung{"trend-skill-limit must be between 1 and 10.",
             {"--trend-skill-limit 0", "--trend-skill-limit 11"},
             {"--trend-skill-limit 1"}},
        Rung{"team must be at most 256 characters.",
             {{"--team", repeated(256) + " "}},
             {{"--team", repeated(256)}, {"--team", ""}}},
        Rung{"source-kind must start with a lowercase letter and contain only lowercase letters, digits, or "
             "underscores.",
             {"--source-kind 1a", "--source-kind aB", {"--source-kind", ""}, {"--source-kind", repeated(129, "a")}},
             {"--source-kind z", {"--source-kind", repeated(128, "_").replace(0, 1, "a")}}},
        Rung{"recent-cursor must contain between 1 and 2048 characters.",
             {{"--recent-cursor", "\n \n"}, {"--recent-cursor", repeated(2049)}},
             {{"n", "--recent-cursor", " " + repeated(2048) + "\n"}}},
        Rung{"feedback-cursor must contain between 1 and 32768 characters.",
             {{"--feedback-cursor", ""}, {"--feedback-cursor", repeated(32769, "c")}},
             {{"n", "--feedback-cursor", repeated(32768, "c") + " "}}},
    };
    // Breaking one rung after another, from the last to the first, the earliest is always what is complained of.
    Words broken = "skill analytics";
    for (auto rung = ladder.rbegin(); rung != ladder.rend(); ++rung) {
        broken = with(broken, rung->refused.front());
        expectRefused(broken, rung->message, rung->where);
        for (const Words& options : rung->refused) {
            expectRefused(with("skill analytics", options), rung->message, rung->where);
        }
        for (const Words& options : rung->accepted) {
            const testing::ScopedTrace trace(rung->where.file_name(), static_cast<int>(rung->where.line()), "");
            const ScriptedService service({answer("{}")});
            EXPECT_EQ(runTool(with("skill analytics", options)).out, "{}\n") << testing::PrintToString(options);
        }
    }
    expectRefused({"skill", "analytics", repeated(201)}, "skill-name must be at most 200 characters.");
    for (const char* option : {"--skill-limit", "--skill-offset", "--trend-skill-limit"}) {
        expectRefused({"skill", "analytics", "n", option, "5"},
                      "skill-limit, skill-offset, and trend-skill-limit apply "
                      "only to the overview; omit the skill name.");
    }
    for (const char* option : {"--recent-limit", "--recent-cursor", "--feedback-limit", "--feedback-cursor"}) {
        expectRefused({"skill", "analytics", option, "5"},
                      "recent-limit, recent-cursor, feedback-limit, and "
                      "feedback-cursor apply only to one skill; pass a skill name.");
    }
}

TEST(SkillFeedback, SendsAReport) {
    const std::string request = "POST /api/skill/feedback\n";
    const std::string done = "Skill feedback submitted.\n";
    expectRows({
        row({"skill", "feedback", " n\n", "  text  "}, request + R"({"skillName":"n","markdown":"  text  "})",
            "ignored", done),
        row({"skill", "feedback", "n", "t", "--namespace", "\ts "},
            request + R"({"skillName":"n","markdown":"t","skillNamespace":"s"})", "", done),
        withInput(row("skill feedback n", request + R"({"skillName":"n","markdown":"# a\n\n"})", "", done),
                  Input::pipe("# a\n\n")),
    });
    const std::string name = "skill-name must not be empty.";
    const std::string report = "Provide Markdown feedback as an argument or pipe it on stdin.";
    expectRefusedByRun({"skill", "feedback", " \n", "", "--namespace", ""}, name);
    expectRefusedByRun({"skill", "feedback", "n", " ", "--namespace", ""}, report);
    expectRefusedByRun({"skill", "feedback", "n", "t", "--namespace", " "},
                       "namespace must not be empty when provided.");
}

} // namespace
