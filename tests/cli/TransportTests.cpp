// What can happen to an answer on its way, at every request of a command of each shape.
#include <thread>

#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace std::chrono_literals;
using namespace testsupport;

namespace {

/// A run that gets all its answers, and what of its output stands ahead of its last request.
struct Dialogue {
    CommandRow row;
    std::string asked{};
};

/// A run that looks something up, or is refused, and asks again.
Dialogue twice(const Words& arguments, const Answer& first, const std::vector<std::string>& requests,
               const std::string& asked, const std::string& report, Location where = Location::current()) {
    CommandRow whole{.arguments = arguments, .answers = {first, answer("{}")}, .requests = requests, .where = where};
    whole.out = asked + report;
    return {withInput(whole, Input::terminal("y\n")), asked};
}

std::vector<Dialogue> dialogues(const std::string& directory) {
    CommandRow table = row("ls", "GET /api/nodes?limit=100&offset=0&cliVerb=ls", R"({"nodes":[]})",
                           "kind\towner\tupdated\tid\tname\n");
    table.err = "orvane ls: showing 0-0\n";
    CommandRow download = row("asset get " + id, "GET /api/assets/" + lowerId, "\x89PNG",
                              directory + "/orvane-assets/" + lowerId + ".png\n");
    download.setting.environment["TMPDIR"] = directory;
    const std::string warning =
        "Deleting this will remove it from Orvane and uninstall the skill. Anything shared with other users will "
        "disappear from their Orvane, but their local copies will stay unchanged.\nContinue? [y/N] ";
    CommandRow removal = requestRow("skill remove " + id, "POST /api/skill/item/" + lowerId + "/delete\n{}");
    removal.setting.input = Input::terminal("y\n");
    removal.out.insert(0, warning);
    const std::string node = "/api/nodes/" + id;
    const std::string chat = "/api/transcripts/" + id;
    const std::string install = "POST /api/skill/item/" + lowerId + "/install\n{";
    return {
        {requestRow("search x", "GET /api/contexts/search?q=x&limit=10")},
        {requestRow("modality " + id + " clear", "PUT /api/slices/modality/" + lowerId + "\n{\"modality\":null}")},
        {row("ontology space delete " + id, "DELETE /api/ontology/v2/spaces/" + lowerId, "{}",
             "Deleted space " + lowerId + "\n")},
        {row("status", "GET /api/status", R"({"version":"1"})",
             "status    ?\nversion   1\ningested  never\nsynced    never\n")},
        {table},
        {row("cat " + id, "GET " + node + "?full=true&cliVerb=cat", R"({"read":{"content":"a"}})", "a\n")},
        {download},
        {row("tee T", "POST /api/contexts?cliVerb=tee\n" + std::string(R"({"title":"T","markdown":""})"), "{}",
             "created context\n")},
        {removal, warning},
        twice(
            "mv " + id + " --unfiled", answer(R"({"kind":"orvane_folder"})"),
            {"GET " + node + "?meta=true&cliVerb=mv", "POST /api/folders/" + id + "/move?cliVerb=mv\n{\"root\":true}"},
            "", "moved folder  → root\n"),
        twice("delete " + id, answer(R"({"message":"Gone."})"),
              {"GET " + chat + "/delete-preview", "POST " + chat + "/delete\n{}"}, "Gone.\nContinue? [y/N] ",
              "deleted chat\n"),
        twice("skill install " + id,
              answer(409, R"({"error":"name_conflict","confirmationRequired":true,"message":"Taken."})"),
              {install + "}", install + R"("replaceConflicts":true})"}, "Taken.\nReplace all and continue? [y/N] ",
              "installed skill : no agents affected\n"),
    };
}

/// What comes in the place of a proper answer, of which the pieces are head and body.
std::vector<std::pair<Answer, std::string>> faultsOf(const Answer& proper) {
    const std::string& head = proper.pieces.at(0);
    const std::string& body = proper.pieces.at(1);
    const std::string ok = "HTTP/1.1 200 OK\r\n";
    const std::string lost = "The connection to Orvane was interrupted. Please try again.";
    const std::string other = "Could not communicate with Orvane: the ";
    return {
        {absence(), "Orvane is not running. Please open the Orvane app first."},
        {cutAnswer(""), lost},
        {cutAnswer(head.substr(0, 20)), lost},
        {cutAnswer(head), lost},
        {cutAnswer(head + body.substr(0, body.size() - 1)), lost},
        {cutAnswer(ok + "Transfer-Encoding: chunked\r\n\r\n2\r\n{}\r\n"), lost},
        {resetAnswer(), lost},
        {resetAnswer(head + body.substr(0, body.size() - 1)), lost},
        {cutAnswer("SSH-2.0-server\r\n"), other + "answer is not valid HTTP (bad version)"},
        {rawAnswer(ok + "X: " + std::string(1'200'000, 'x')), other + "head of the answer is too large"},
    };
}

class Transport : public TemporaryFiles {};

TEST_F(Transport, FaultsEndTheRunInTheirWords) {
    for (const auto& [row, asked] : dialogues(directory)) {
        for (std::size_t at = 0; at < row.answers.size(); ++at) {
            for (const auto& [fault, words] : faultsOf(row.answers[at])) {
                CommandRow failed = row;
                failed.answers.resize(at);
                failed.answers.push_back(fault);
                failed.requests.resize(at + (fault.use == Answer::Use::never ? 0 : 1));
                failed.out = at + 1 == row.answers.size() ? asked : "";
                failed.err = "Error: " + words + "\n";
                failed.status = 1;
                const testing::ScopedTrace trace(__FILE__, __LINE__, "request " + std::to_string(at) + ": " + words);
                expectRow(failed);
            }
        }
    }
    EXPECT_TRUE(std::filesystem::is_empty(directory)) << "a file was written";
}

TEST_F(Transport, IsPatientWithAnAnswerThatDripsIn) {
    for (auto& [row, asked] : dialogues(directory)) {
        for (Answer& dripping : row.answers) {
            const std::string bytes = dripping.pieces[0] + dripping.pieces[1];
            std::vector<std::string> drops;
            for (std::size_t start = 0; start < bytes.size(); start += 16) {
                drops.push_back(bytes.substr(start, 16));
            }
            dripping = dribbledAnswer(std::move(drops), 1ms);
        }
        expectRow(row);
    }
}

TEST_F(Transport, WaitsNoLongerThanACommandMay) {
    // Of all commands, this one has the shortest limit. As a hook it never stands in an agent's way.
    const ScriptedService service({stall(), stall()});
    ToolResult hook;
    std::thread agent([&hook] { hook = runTool({"check-in", "--hook"}); });
    const ToolResult result = runTool({"check-in"});
    agent.join();
    EXPECT_EQ(result.err,
              "Error: Orvane did not respond before the request timed out. It may be busy; please try again.\n");
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(hook.out + hook.err, "");
    EXPECT_EQ(hook.status, 0);
}

} // namespace
