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
        requestRow("skill suggestion show " + update, "GET" + path + "/" + update),
        requestRow("skill suggestion show " + create, "GET" + path + "/" + create),
        requestRow("skill suggestion apply " + update, "POST" + path + "/" + update + "/apply\n{}"),
        requestRow("skill suggestion apply " + create, "POST" + path + "/" + create + "/apply\n{}"),
    };
    for (const CommandRow& row : rows) {
        expectRow(row);
        for (const std::string body : {R"({ "error":"stale_suggestion","message":"x" })"
                                       "\r\n\x1B\xFF",
                                       ""}) {
            CommandRow refused = row;
            refused.answers = {answer(400, body)};
            refused.out = "";
            refused.err = body + "\n";
            refused.status = 1;
            expectRow(refused);
        }
    }
    for (const char* wrong : {"update-0123456789ABCDEF", "update-0123456789abcde", "update-0123456789abcdef0",
                              "delete-0123456789abcdef", "xupdate-0123456789abcdef", "update-0123456789abcdeg",
                              "updatE-0123456789abcdef", " update-0123456789abcdef", "update 0123456789abcdef", ""}) {
        for (const char* command : {"show", "apply"}) {
            expectRefused({"skill", "suggestion", command, wrong},
                          "suggestion-id must be update- or create- followed by 16 lowercase hex characters.");
        }
    }
}

TEST(SkillAnalytics, SendsWhatIsGivenInOrder) {
    const std::string path = "GET /api/skill/analytics?granularity=";
    expectRequests({
        requestRow("skill analytics", path + "day"),
        requestRow({"skill", "analytics", " \n my skill\t"}, path + "day&skillName=my%20skill"),
        requestRow(
            {"skill",
             "analytics",
             "--people-offset",
             "0",
             "--people-limit",
             "1",
             "--trend-skill-limit",
             "10",
             "--skill-offset",
             "10000",
             "--skill-limit",
             "100",
             "--source-kind",
             "a_1",
             "--team",
             "",
             "--timezone",
             "Europe/Berlin",
             "--until",
             "2025-13-45",
             "--since",
             "9999-00-99",
             "--granularity",
             "hour"},
            path + "hour&since=9999-00-99&until=2025-13-45&timezone=Europe/Berlin&teamId=&sourceKind=a_1&skillLimit="
                   "100&skillOffset=10000&trendSkillLimit=10&peopleLimit=1&peopleOffset=0"),
        requestRow({"skill", "analytics", "--people-offset", "1", "--people-limit", "2", "--feedback-cursor", " b ",
                    "--feedback-limit", "3", "--recent-cursor", "\ta", "--recent-limit", "4", "n"},
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

/// What `analytics` accepts, and what it refuses with which message.
TEST(SkillAnalytics, KeepsWithinItsBounds) {
    const std::string range = " must be between 1 and 100.";
    const std::string offset = " must be between 0 and 10000.";
    const std::string day = " must be a yyyy-mm-dd local day.";
    const std::string trend = "trend-skill-limit must be between 1 and 10.";
    const std::string kind =
        "source-kind must start with a lowercase letter and contain only lowercase letters, digits, or underscores.";
    const std::string recent = "recent-cursor must contain between 1 and 2048 characters.";
    const std::string feedback = "feedback-cursor must contain between 1 and 32768 characters.";
    const std::string granularity = "granularity must be hour, day, week, month, or year.";
    const std::string zone = "timezone must be a valid IANA timezone.";
    const std::string team = "team must be at most 256 characters.";
    const std::string overview =
        "skill-limit, skill-offset, and trend-skill-limit apply only to the overview; omit the skill name.";
    const std::string single =
        "recent-limit, recent-cursor, feedback-limit, and feedback-cursor apply only to one skill; pass a skill name.";
    struct Bound {
        Words options;
        std::string message; ///< Empty: accepted.
        Location where = Location::current();
    };
    const std::vector<Bound> bounds{
        Bound{{" \u2003\n"}, "skill-name must not be empty."},
        Bound{{" " + repeated(200) + " "}, ""},
        Bound{{repeated(201)}, "skill-name must be at most 200 characters."},
        Bound{"--granularity Day", granularity},
        Bound{"--granularity year", ""},
        Bound{"--timezone UTC", ""},
        Bound{"--timezone Mars/Olympus", zone},
        Bound{{"--timezone", ""}, zone},
        Bound{"--since 2025-1-1", "since" + day},
        Bound{"--since 2025-01-011", "since" + day},
        Bound{"--since 2025-01-0", "since" + day},
        Bound{"--since 2025/01/01", "since" + day},
        Bound{"--until 2025-01-0x", "until" + day},
        Bound{"--until 2025-01-0:", "until" + day},
        Bound{"--until 20250-1-01", "until" + day},
        Bound{{"--until", ""}, "until" + day},
        Bound{"--skill-limit 0", "skill-limit" + range},
        Bound{"--skill-limit 101", "skill-limit" + range},
        Bound{"--skill-limit 1", ""},
        Bound{"n --recent-limit 0", "recent-limit" + range},
        Bound{"n --recent-limit 101", "recent-limit" + range},
        Bound{"n --recent-limit 100", ""},
        Bound{"n --feedback-limit 0", "feedback-limit" + range},
        Bound{"n --feedback-limit 101", "feedback-limit" + range},
        Bound{"n --feedback-limit 100", ""},
        Bound{"--people-limit 0", "people-limit" + range},
        Bound{"--people-limit 101", "people-limit" + range},
        Bound{"--people-limit 100", ""},
        Bound{"--skill-offset=-1", "skill-offset" + offset},
        Bound{"--skill-offset 10001", "skill-offset" + offset},
        Bound{"--skill-offset 0", ""},
        Bound{"--people-offset=-1", "people-offset" + offset},
        Bound{"--people-offset 10001", "people-offset" + offset},
        Bound{"--people-offset 10000", ""},
        Bound{"--trend-skill-limit 0", trend},
        Bound{"--trend-skill-limit 11", trend},
        Bound{"--trend-skill-limit 1", ""},
        Bound{{"--team", repeated(256)}, ""},
        Bound{{"--team", repeated(256) + " "}, team},
        Bound{"--source-kind claude_code_chat", ""},
        Bound{"--source-kind z", ""},
        Bound{{"--source-kind", repeated(128, "a")}, ""},
        Bound{{"--source-kind", repeated(129, "a")}, kind},
        Bound{"--source-kind Claude", kind},
        Bound{"--source-kind 1a", kind},
        Bound{"--source-kind _a", kind},
        Bound{"--source-kind a-b", kind},
        Bound{"--source-kind é", kind},
        Bound{{"--source-kind", ""}, kind},
        Bound{{"n", "--recent-cursor", "\n \n"}, recent},
        Bound{{"n", "--recent-cursor", " " + repeated(2048) + "\n"}, ""},
        Bound{{"n", "--recent-cursor", repeated(2049)}, recent},
        Bound{{"n", "--feedback-cursor", ""}, feedback},
        Bound{{"n", "--feedback-cursor", repeated(32768, "c") + " "}, ""},
        Bound{{"n", "--feedback-cursor", repeated(32769, "c")}, feedback},
        Bound{"n --skill-limit 5", overview},
        Bound{"n --skill-offset 5", overview},
        Bound{"n --trend-skill-limit 5", overview},
        Bound{"--recent-limit 5", single},
        Bound{"--recent-cursor c", single},
        Bound{"--feedback-limit 5", single},
        Bound{"--feedback-cursor c", single},
        Bound{"n --people-limit 5 --people-offset 5", ""},
    };
    for (const auto& [options, message, where] : bounds) {
        const Words arguments = with("skill analytics", options);
        if (!message.empty()) {
            expectRefused(arguments, message, {}, where);
            continue;
        }
        const testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()), "");
        const ScriptedService service({answer("{}")});
        EXPECT_EQ(runTool(arguments).out, "{}\n");
    }
}

TEST(SkillAnalytics, ComplainsOfTheFirstInALine) {
    // Each pair breaks two neighbouring bounds; the one that is checked first stands first.
    Words options{"--feedback-cursor", ""};
    std::string second = "feedback-cursor must contain";
    const std::vector<std::pair<Words, std::string>> ladder{
        {{"--recent-cursor", ""}, "recent-cursor must contain"},
        {{"--source-kind", ""}, "source-kind must start"},
        {{"--team", repeated(257)}, "team must be"},
        {"--trend-skill-limit 0", "trend-skill-limit must be"},
        {"--people-offset=-1", "people-offset must be"},
        {"--skill-offset=-1", "skill-offset must be"},
        {"--people-limit 0", "people-limit must be"},
        {"--feedback-limit 0", "feedback-limit must be"},
        {"--recent-limit 0", "recent-limit must be"},
        {"--skill-limit 0", "skill-limit must be"},
        {"--until x", "until must be"},
        {"--since x", "since must be"},
        {"--timezone x", "timezone must be"},
        {"--granularity x", "granularity must be"},
        {{""}, "skill-name must not be empty."},
    };
    for (const auto& [worse, message] : ladder) {
        options = with(options, worse);
        const ToolResult result = runTool(with("skill analytics", options));
        EXPECT_EQ(result.err.substr(0, result.err.find(message)), "Error: ") << result.err.substr(0, 200);
    }
}

TEST(SkillFeedback, SendsAReport) {
    const std::string request = "POST /api/skill/feedback\n";
    const std::string done = "Skill feedback submitted.\n";
    expectRequests({
        row({"skill", "feedback", " n\n", "  text  "}, request + R"({"skillName":"n","markdown":"  text  "})",
            "ignored", done),
        row({"skill", "feedback", "n", "t", "--namespace", "\ts "},
            request + R"({"skillName":"n","markdown":"t","skillNamespace":"s"})", "", done),
        withInput(row("skill feedback n", request + R"({"skillName":"n","markdown":"# a\n\n"})", "", done),
                  Input::pipe("# a\n\n")),
        withInput(row("skill feedback n t", request + R"({"skillName":"n","markdown":"t"})", "", done),
                  Input::pipe("piped")),
    });
    const std::string name = "skill-name must not be empty.";
    const std::string report = "Provide Markdown feedback as an argument or pipe it on stdin.";
    const std::string space = "namespace must not be empty when provided.";
    expectRefusedByRun({"skill", "feedback", " \n", "", "--namespace", ""}, name);
    expectRefusedByRun({"skill", "feedback", "n", " ", "--namespace", ""}, report, {.input = Input::pipe("piped")});
    for (const Input& input : {Input{}, Input::pipe("a\xFF"), Input::pipe(" \n"), Input::terminal("typed\n")}) {
        expectRefusedByRun("skill feedback n", report, {.input = input});
    }
    expectRefusedByRun({"skill", "feedback", "n", "t", "--namespace", " "}, space);
}

} // namespace
