#include <csignal>
#include <set>

#include "platform/text/Text.h"
#include "support/CommandRow.h"
#include "support/HelpScreens.h"

using namespace testsupport;

namespace {

void expectStatus(const std::vector<Reply>& replies, const Output& out = {}) {
    expectReplies("status", "GET /api/status", replies, out);
}

TEST(StatusCommand, RendersWhatTheAnswerHolds) {
    expectStatus({
        Reply(R"({"status":"ok","version":"1.2.3","build_number":"45","cli_access":true,
                      "user":{"name":"Sample User","email":""},"lastIngestionAt":"Mar 7, 2024, 2:05 PM PST"})",
              "status    ok\nversion   1.2.3 (build 45)\naccess    yes\nuser      Sample User\n"
              "ingested  Mar  7  2024\nsynced    never\n"),
        Reply(R"({"status":1,"version":"1","build_number":4,"cli_access":false,"user":{"name":"A","email":"a@b.c"},
                      "deployment":{"name":"Acme","kind":"on_prem"},"lastCloudSyncAt":"yesterday"})",
              "status      ?\nversion     1\naccess      no\nuser        A · a@b.c\ningested    never\n"
              "deployment  Acme (On-Prem)\nsynced      yesterday\n"),
        Reply(R"({"user":{},"cli_access":"yes","deployment":{"name":"Acme","seats":3}})",
              "status    ?\nuser      ?\ningested  never\nsynced    never\n"),
        Reply(R"({"user":null,"authenticated":false})",
              "status    ?\nuser      not signed in\ningested  never\nsynced    never\n"),
        Reply(R"({"user":null,"authenticated":true})", "status    ?\ningested  never\nsynced    never\n"),
        Reply("[1,2]\n", "[1,2]\n\n"),
        Reply("not JSON", "not JSON\n"),
        Reply("", "\n"),
    });
    expectStatus({Reply(R"({"status":"ok","authenticated":false,"cli_access":false})",
                        "\x1B[2mstatus  \x1B[0m  \x1B[32mok\x1B[0m\n\x1B[2maccess  \x1B[0m  \x1B[31mno\x1B[0m\n"
                        "\x1B[2muser    \x1B[0m  \x1B[31mnot signed in\x1B[0m\n"
                        "\x1B[2mingested\x1B[0m  \x1B[2mnever\x1B[0m\n\x1B[2msynced  \x1B[0m  \x1B[2mnever\x1B[0m\n")},
                 Output::terminal());
}

TEST(WhoAmICommand, RendersWhatTheAnswerHolds) {
    expectReplies(
        {"whoami"}, "GET /api/whoami",
        {
            Reply(R"({"name":"Ünal","email":"u@x.example","id":"u1","teams":[{"name":"A"},{},{"name":"B"}],
                      "cloudSyncEnabled":false,"authenticated":true})",
                  "name   Ünal\nemail  u@x.example\nuser   u1\nteams  A, B\nsync   off\n"),
            Reply(R"({"name":"","email":7,"id":"u1","teams":[],"cloudSyncEnabled":true})", "user  u1\nsync  on\n"),
            Reply(R"({"teams":[{}]})", "teams  \n"),
            Reply(R"({"teams":[{"name":"A"},1],"id":"u"})", "user  u\n"),
            Reply("{}", "\n"),
            Reply(R"({"authenticated":false,"name":"A"})", "Not signed in to Orvane.\n"),
            Reply("\"x\"", "\"x\"\n"),
        });
}

/// The least that each command can be called with, between commas; "@" stands for an id.
TEST(ServiceErrors, EndEveryCommand) {
    // These end in words of their own, or need more than a line.
    std::set<std::string> refused{"orvane-cli asset upload", "orvane-cli skill suggestion ls",
                                  "orvane-cli skill suggestion show", "orvane-cli skill suggestion apply"};
    const std::string_view patterns = R"(
        status, whoami, analytics, feedback x, check-in, search x, team list, integration list, profile get,
        profile edit-field --field f --value v, profile edit-text --section s --content c,
        profile add-card --section s --fields {}, profile update-card --section s --index 0 --updates {},
        profile remove-card --section s --index 0, sharing get @, sharing add @ --team t,
        sharing remove @ --team t, asset get @, modality @ stale, node list, node get @, node search x,
        source list, source get @, context list, context get @, context create --title t,
        context edit @ --old-string o --new-string n, context move @ --unfiled, context rename @ --name n,
        context delete @, folder list, folder get @, folder create --name n, folder rename @ --name n,
        folder move @ --to-root, folder delete @, transcript list, transcript get @, delete @, ls, find @, cat @,
        head @, tail @, stat @, stat @ --json, grep x, mkdir N, tee T, sed @ --old a --new b,
        replace-lines @ --old-line a --delete, mv @ --unfiled, rm @, rmdir @, skill ls, skill stat @,
        skill create N, skill import --list, skill import ., skill bundle create N, skill rename @ N,
        skill move @ --top-level, skill remove @ --force, skill install @, skill uninstall @, skill installed,
        skill refresh, skill analytics, skill feedback s x, skill file ls @, skill file cat @,
        skill file tee @ p, skill file sed @ p --old a --new b, skill file mkdir @ p, skill file mv @ p --to q,
        skill file rm @ p, skill validate @, ontology spaces, ontology space get @, ontology space create N,
        ontology space update @ --name n, ontology space delete @, ontology types @, ontology primitives @,
        ontology enums @, ontology enum-cases @, ontology field create --type-id @ --from-file -,
        ontology field update @ --from-file -, ontology enum create @ N, ontology enum update @ --name n,
        ontology enum-case create @ N, ontology enum-case update @ --name n,
        ontology assertion create --object-id @ --from-file -, ontology assertion update @ --from-file -,
        ontology type get @, ontology type delete @, ontology field get @, ontology field delete @,
        ontology enum get @, ontology enum delete @, ontology enum-case get @, ontology enum-case delete @,
        ontology object get @, ontology object delete @, ontology assertion get @, ontology assertion delete @,
        ontology type create @ N, ontology type update @ --name n, ontology fields @,
        ontology objects --space-id @, ontology object create @ @, ontology object update @ --type-id @,
        ontology assertions @, ontology assertion children @, ontology assertion add-support @ @,
        ontology assertion remove-support @ @)";
    for (const std::string_view pattern : platform::split(patterns, ',')) {
        std::string line;
        for (const char byte : platform::trimmed(pattern)) {
            line += byte == '@' ? id : std::string(1, byte);
        }
        expectServiceRefusal(line, {}, {.input = Input::pipe(R"({"name":"n"})")});
        refused.insert(screenOfCommandRunBy(Words(line)).command);
    }
    for (const HelpScreen& screen : goldenHelpScreens()) {
        EXPECT_TRUE(!screen.subcommands().empty() || refused.contains(screen.command)) << screen.command;
    }
}

TEST(ServiceErrors, AreReportedInTheServicesWords) {
    const std::vector<std::pair<Answer, std::string>> cases{
        {answer(400, R"({"message":"x","error":"y"})"), "x"},
        {answer(404, R"({"error":"y"})"), "y"},
        {answer(404, R"({"message":3,"error":"y"})"), "y"},
        {answer(500, R"({"message":""})"), ""},
        {answer(500, R"({"code":1})"), "Request failed."},
        {answer(500, "  boom\n"), "boom"},
        {answer(500, ""), "Request failed."},
        {answer(500, " \n\t"), "Request failed."},
        {answer(500, "\xFF\xFE"), "Request failed."},
        {answer(599, "[1, 2] "), "[1, 2]"},
    };
    CommandRow refused{.arguments = "status", .requests = {"GET /api/status"}, .status = 1};
    for (const auto& [reply, text] : cases) {
        refused.answers = {reply};
        refused.err = "error: " + text + "\n";
        expectRow(refused);
    }
    refused.setting.err = Output::terminal();
    refused.err = "\x1B[31merror:\x1B[0m [1, 2]\n";
    expectRow(refused);
}

TEST(RawAnswers, AreWholeUpToFourMegabytesAndGoOutAsTheyComeBeyond) {
    const std::string interrupted = "Error: The connection to Orvane was interrupted. Please try again.\n";
    for (const std::size_t length : {4U << 20U, (4U << 20U) + 1}) {
        const std::string came(1'000'000, 'x');
        const ScriptedService service(
            {cutAnswer("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(length) + "\r\n\r\n" + came)});
        const ToolResult result = runTool({"node", "get", id});
        EXPECT_EQ(result.out.size(), length > 4U << 20U ? came.size() : 0U);
        EXPECT_EQ(result.err, interrupted);
        EXPECT_EQ(result.status, 1);
    }
}

TEST(Memory, ThatRunsOutIsAnError) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer reserves more memory than any limit leaves";
#endif
    if (toolIsEmulated()) {
        GTEST_SKIP() << "the emulator needs more memory than the limit leaves";
    }
    const ScriptedService service({answer(R"({"read":{"content":")" + std::string(64'000'000, 'x') + "\"}}")});
    ToolSetting shell;
    shell.binary = "/bin/sh";
    const ToolResult result = runTool({"-c", R"(ulimit -v 48000; exec "$@")", "sh", toolBinary(), "cat", id}, shell);
    EXPECT_EQ(result.err, "Error: Out of memory.\n");
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.status, 1);
}

TEST(StandardInput, ThatIsClosedIsNoEmptyText) {
    const std::string unreadable = "Could not read standard input: Bad file descriptor";
    for (const auto& [words, message] : std::vector<std::pair<std::string, std::string>>{
             {"tee T", unreadable},
             {"tee T --from-file /dev/stdin", "Could not read file: /dev/stdin"},
             {"feedback", unreadable},
             {"skill feedback s", unreadable},
             {"skill file tee " + id + " SKILL.md", unreadable},
             {"ontology field update " + id + " --from-file -", unreadable}}) {
        expectRow({.arguments = words,
                   .err = "Error: " + message + "\n",
                   .status = 1,
                   .setting = {.input = Input::closed()}});
    }
}

TEST(StandardOutput, AFailedWriteIsAnError) {
    const auto runWith = [](Output out, const std::vector<std::string>& arguments) {
        ToolSetting setting;
        setting.out = std::move(out);
        return runTool(arguments, setting);
    };
    const std::string prefix = "Error: Could not write to standard output: ";
    const ToolResult full = runWith(Output::file("/dev/full"), {"--version"});
    EXPECT_EQ(full.err, prefix + "No space left on device\n");
    EXPECT_EQ(full.status, 1);
    {
        ScriptedService service({answer("{}"), answer("{}")});
        const ToolResult closed = runWith(Output::closed(), {"whoami"});
        EXPECT_EQ(closed.err, prefix + "Bad file descriptor\n");
        EXPECT_EQ(closed.status, 1);
        const ToolResult broken = runWith(Output::brokenPipe(), {"whoami"});
        EXPECT_EQ(broken.signal, SIGPIPE);
        EXPECT_EQ(broken.err, "");
    }
}

} // namespace
