// What the service's texts become on a person's terminal, that they stay as they are anywhere else, and that a field
// stays on its line in both places.
#include <algorithm>
#include <array>
#include <regex>

#include "support/CommandRow.h"

using namespace testsupport;

namespace {

/// A text that would steer a terminal. Templates of answers and outputs hold its mark.
struct Hidden {
    char mark;
    std::string json;
    std::string bytes;
    std::string shown;
};

const std::array hidden{
    Hidden{'@', R"(a\u001b]0;x\u0007\u007f\u009b\u202e\u2028z)", "a\x1B]0;x\x07\x7F\u009B\u202E\u2028z",
           "a^[]0;x^G^?<U+009B><U+202E><U+2028>z"},
    Hidden{'~', R"(\u001b)", "\x1B", "^["},
    Hidden{'!', R"(\r)", "\r", "^M"},
    // A line end and a tab, where the text has to stay in its line.
    Hidden{'%', R"(\r\n\t)", "   ", "   "},
    // Inside JSON, and between its values.
    Hidden{'$', "\x7F\u009B\u202E", "\x7F\u009B\u202E", R"(\u007f\u009b\u202e)"},
    Hidden{'|', "\r", "\r", " "},
    // The beginning of a character alone.
    Hidden{'=', "", "\xE2", "\uFFFD"},
};

std::string filled(const std::string& pattern, std::string Hidden::*form) {
    std::string text;
    for (const char byte : pattern) {
        const auto found = std::ranges::find(hidden, byte, &Hidden::mark);
        text += found == hidden.end() ? std::string(1, byte) : (*found).*form;
    }
    return text;
}

Answer reply(const std::string& pattern, int status = 200) {
    return answer(status, filled(pattern, &Hidden::json));
}

/// A run whose output is the same but for what hides: as it came in pipes, and shown at a terminal.
void expectShown(const Words& arguments, const std::vector<Answer>& answers, const std::string& out,
                 const std::string& err = {}, Location where = Location::current()) {
    for (const bool isTerminal : {false, true}) {
        const testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()),
                                         arguments.front() + (isTerminal ? " at a terminal" : " in a pipe"));
        ToolSetting setting{.input = Input::terminal("y\n")};
        if (isTerminal) {
            setting.out = setting.err = Output::terminal();
        }
        const ScriptedService service(answers);
        const ToolResult result = runTool(arguments, setting);
        const std::regex styles("\x1B\\[[0-9;]*m");
        const auto form = isTerminal ? &Hidden::shown : &Hidden::bytes;
        EXPECT_EQ(std::regex_replace(result.out, styles, ""), filled(out, form));
        EXPECT_EQ(std::regex_replace(result.err, styles, ""), filled(err, form));
    }
}

TEST(Terminal, ShowsWhatWouldSteerIt) {
    expectShown("status", {reply(R"({"status":"@%","version":"@%","build_number":"%@","user":{"name":"@%","email":"@%"},
                          "lastIngestionAt":"@%","deployment":{"name":"@%"}})")},
                "status      @%\nversion     @% (build %@)\nuser        @% · @%\ningested    @%\ndeployment  @%\n"
                "synced      never\n");
    expectShown("whoami", {reply(R"({"name":"@%","email":"@%","id":"%@","teams":[{"name":"@"},{"name":"%"}]})")},
                "name   @%\nemail  @%\nuser   %@\nteams  @, %\n");
    expectShown("ls", {reply(R"({"nodes":[{"kind":"k~","id":"i~","name":"@","threadId":"t~","initiated":"h~",
                                  "executionMode":"l~","updatedAt":"u~","sourceOwner":{"email":"o~"},
                                  "sharedWith":[{"teamName":"s~"}]}]})")},
                "kind\towner\tshared\tinitiated\texecution\tupdated\tid\tthread\tname\n"
                "k~\to~\ts~\th~\t\tl~\t\tu~\ti~\tt~\t@\n",
                "orvane ls: showing 1-1\n");
    expectShown("find " + id, {reply(R"({"nodes":[{"name":"@"}]})")}, "kind\towner\tupdated\tid\tname\n\tme\t\t\t@\n",
                "orvane find: showing 1-1\n");
    expectShown("stat " + id,
                {reply(R"({"id":"@%","name":"@","kind":"@%","sourceOwner":{"email":"@%"},"originalUpdatedAt":"%@",
                          "originalCreatedAt":"@%","initiated":"@%","executionMode":"%"})")},
                "@  @%  @%  ← here\n\nowner      @%\ntype       @%\nupdated    %@\ncreated    @%\ninitiated  @%\n"
                "execution  %\n");
    expectShown("grep x",
                {reply(R"({"results":[{"nodeId":"@%","title":"@","threadId":"@%","sliceId":"%","modality":"@%",
                          "body":"@\r\n\tb","document":{"kind":"@%","sourceOwner":{"email":"@%"},"initiated":"@%",
                          "executionMode":"%@"}}],
                          "nextPageToken":"@%"})")},
                "@%  @%  @%  @\n    threadId: @%\n    sliceId: % · modality: @%\n"
                "    initiated: @% · executionMode: %@\n    @!\n    \tb\n\n"
                "Next page: repeat with --page-token '@%' and the same parameters.\n");
    expectShown("mkdir N", {reply(R"({"name":"@","id":"@%"})")}, "created folder \"@\"  @%\n");
    expectShown("mv " + id + " --to " + id, {reply(R"({"kind":"orvane_context"})"), reply(R"({"folderId":"@%"})")},
                "moved context  → folder @%\n");
    expectShown("delete " + id, {reply(R"({"message":"@\r\n\tb"})"), reply(R"({"name":"@","transcriptId":"%"})")},
                "@!\n\tb\nContinue? [y/N] deleted chat \"@\"  %\n");
    expectShown("skill install " + id,
                {reply(R"({"error":"name_conflict","confirmationRequired":true,"message":"@\r\n\tb"})", 409),
                 reply(R"({"kind":"@","name":"@%","agents":["@","%"]})")},
                "@!\n\tb\nReplace all and continue? [y/N] installed @ @% → @, %\n");
    expectShown("skill file mkdir " + id + " p",
                {reply(R"({"path":"@%","packageHash":"~","validationStatus":"valid"})")},
                "created @% — package ~, valid\n");
    expectShown("skill file cat " + id, {reply(R"({"text":"@\r\n\tb"})")}, "@!\n\tb\n");
    expectShown("skill validate " + id, {reply(R"({"validationStatus":"@%"})")}, "@%\n");
    expectShown("skill suggestion ls", {answer(400, filled("@", &Hidden::bytes))}, "", "@\n");
    expectShown("skill suggestion ls", {reply(R"({"e":"$"}|)", 400)}, "", "{\"e\":\"$\"}|\n");
    expectShown("status", {reply(R"({"message":"@!"})", 400)}, "", "error: @!\n");
    expectShown("mv " + id + " --unfiled", {reply(R"({"kind":"@"})")}, "",
                "Error: Nodes of kind '@' cannot be moved or renamed.\n");
    expectShown("search x", {answer(filled("{\"a\":\"@!\"}", &Hidden::bytes))}, "{\"a\":\"@!\"}\n");
    expectShown("search x", {reply("[|\n\t\"$\"]")}, "[|\n\t\"$\"]\n");
    expectShown("status", {reply("\"$\"")}, "\"$\"\n");
}

TEST(Terminal, ShowsWhatComesInPieces) {
    // Of each size that is received at once, two ends in three cut a character.
    std::string text;
    while (text.size() <= std::size_t{4} << 20U) {
        text += "€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€€";
    }
    for (const auto& [start, end] : {std::pair(" [\"", "$\"]|"), std::pair("", "@!=")}) {
        const ScriptedService service({answer(start + text + filled(end, &Hidden::bytes))});
        const ToolResult result = runTool({"ls", "--json"}, {.out = Output::terminal()});
        EXPECT_TRUE(result.out == start + text + filled(end, &Hidden::shown) + "\n") << result.out.substr(text.size());
    }
}

TEST(Terminal, AlignsWhatIsShown) {
    CommandRow table =
        onTerminal(row("ls", "GET /api/nodes?limit=100&offset=0&cliVerb=ls", R"({"nodes":[{"kind":"123456\u001b"}]})",
                       "\x1B[1mkind\x1B[0m\t\t\x1B[1mowner\x1B[0m\t\x1B[1mupdated\x1B[0m\t"
                       "\x1B[1mid\x1B[0m\t\x1B[1mname\x1B[0m\n\x1B[2m123456^[\x1B[0m\t"
                       "\x1B[32mme\x1B[0m\t\x1B[2m\x1B[0m\t\x1B[36m\x1B[0m\t\x1B[1m\x1B[0m\n"));
    table.err = "orvane ls: showing 1-1\n";
    expectRow(table);
}

TEST(Terminal, KeepsLinesAndTabsOfANodesText) {
    const std::string text = R"({"kind":"@%","sourceOwner":{"email":"@"},"updatedAt":"@","name":"@",
                                "read":{"content":"@\r\n\tb\u0000 👩‍🌾"}})";
    const std::string header = "\x1B[2m@%\x1B[0m  \x1B[32m@\x1B[0m  \x1B[2m@\x1B[0m  \x1B[1m@\x1B[0m\n\n";
    const std::string shown = filled(header + "@!\n\tb", &Hidden::shown) + "^@ 👩‍🌾\n";
    const std::string piped = filled("@!\n\tb", &Hidden::bytes) + '\0' + " 👩‍🌾\n";
    for (const auto& [verb, query] : std::vector<std::pair<std::string, std::string>>{
             {"cat", "full=true"}, {"head", "headLines=10"}, {"tail", "tailLines=10"}}) {
        const std::string request = "GET /api/nodes/" + id + "?" + query + "&cliVerb=" + verb;
        expectReplies({verb, id}, request, {Reply(filled(text, &Hidden::json), shown)}, Output::terminal());
        expectReplies({verb, id}, request, {Reply(filled(text, &Hidden::json), piped)});
    }
}

} // namespace
