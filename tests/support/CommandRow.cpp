#include "support/CommandRow.h"

#include <sstream>

#include "support/HelpScreens.h"

namespace testsupport {

namespace {

std::string commandLine(const Words& arguments) {
    std::string line = "orvane-cli";
    for (const std::string& argument : arguments) {
        const bool plain = !argument.empty() && argument.find_first_of(" \t\n\"'\\$*") == std::string::npos;
        line.append(" ").append(plain ? argument : testing::PrintToString(argument));
    }
    return line.substr(0, 400);
}

Headers expectedHeaders(const RecordedRequest& request) {
    Headers headers{{"Host", "localhost:" + std::to_string(applicationPort)}};
    if (!request.body.empty()) {
        headers.emplace_back("Content-Type", "application/json");
        headers.emplace_back("Content-Length", std::to_string(request.body.size()));
    }
    return headers;
}

void expectFailure(const Words& arguments, const std::vector<Answer>& answers, const std::string& err,
                   const ToolSetting& setting, Location where) {
    const testing::ScopedTrace trace(where.file_name(), static_cast<int>(where.line()), commandLine(arguments));
    const ScriptedService service(answers);
    const ToolResult result = runTool(arguments, setting);
    EXPECT_EQ(result.err, err);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.status, 1);
}

} // namespace

Words::Words(const std::string& line) {
    std::istringstream words(line);
    for (std::string word; words >> word;) {
        push_back(word);
    }
}

CommandRow row(Words arguments, std::string request, std::string reply, std::string out, Location where) {
    return {.arguments = std::move(arguments),
            .answers = {answer(std::move(reply))},
            .requests = {std::move(request)},
            .out = std::move(out),
            .where = where};
}

CommandRow requestRow(Words arguments, std::string request, Location where) {
    const std::string bytes = "{ \"z\":1.50,\n\t\"a\":\"\\u00e9\\/\" ,\"z\":[] }\r\n";
    return row(std::move(arguments), std::move(request), bytes, bytes + "\n", where);
}

CommandRow onTerminal(CommandRow row) {
    row.setting.out = Output::terminal();
    return row;
}

CommandRow withInput(CommandRow row, Input input) {
    row.setting.input = std::move(input);
    return row;
}

CommandRow stopped(CommandRow row, std::string out, const std::string& message) {
    row.answers.pop_back();
    row.requests.pop_back();
    row.out = std::move(out);
    row.err = "Error: " + message + "\n";
    row.status = 1;
    return row;
}

Words with(Words arguments, const Words& more) {
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

void expectRow(const CommandRow& row) {
    const testing::ScopedTrace trace(row.where.file_name(), static_cast<int>(row.where.line()),
                                     commandLine(row.arguments));
    const ScriptedService service(row.answers);
    const ToolResult result = runTool(row.arguments, row.setting);
    EXPECT_EQ(result.out, row.out);
    EXPECT_EQ(result.err, row.err);
    EXPECT_EQ(result.status, row.status);
    EXPECT_EQ(result.signal, 0);
    EXPECT_EQ(service.requestTexts(), row.requests);
    for (const RecordedRequest& request : service.requests()) {
        EXPECT_EQ(request.headers, expectedHeaders(request)) << request.text();
    }
}

void expectRows(const std::vector<CommandRow>& rows) {
    for (const CommandRow& row : rows) {
        expectRow(row);
    }
}

void expectReplies(const Words& arguments, const std::string& request, const std::vector<Reply>& replies,
                   const Output& out) {
    for (const Reply& reply : replies) {
        CommandRow whole = row(arguments, request, reply.body, reply.out, reply.where);
        whole.err = reply.err;
        whole.setting.out = out;
        expectRow(whole);
    }
}

void expectRefused(const Words& arguments, const std::string& message, Location where) {
    const HelpScreen& screen = screenOfCommandRunBy(arguments);
    expectRow({.arguments = arguments,
               .err = "Error: " + message + "\nUsage: " + screen.usage() + "\n  See '" + screen.command +
                      " --help' for more information.\n",
               .status = 64,
               .where = where});
}

void expectRefusedByRun(const Words& arguments, const std::string& message, const ToolSetting& setting,
                        Location where) {
    expectRow({.arguments = arguments,
               .err = "Error: " + message +
                      "\nUsage: orvane-cli <subcommand>\n  See 'orvane-cli --help' for more information.\n",
               .status = 64,
               .setting = setting,
               .where = where});
}

void expectFailed(const Words& arguments, const std::vector<Answer>& answers, const std::string& message,
                  Location where) {
    expectFailure(arguments, answers, "Error: " + message + "\n", {}, where);
}

void expectServiceRefusal(const Words& arguments, std::vector<Answer> before, const ToolSetting& setting,
                          Location where) {
    before.push_back(answer(400, R"({"message":"x"})"));
    expectFailure(arguments, before, "error: x\n", setting, where);
}

} // namespace testsupport
