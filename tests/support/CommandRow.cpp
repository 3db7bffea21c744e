#include "support/CommandRow.h"

#include <gtest/gtest.h>

namespace testsupport {

namespace {

std::string commandLine(const std::vector<std::string>& arguments) {
    std::string line = "orvane-cli";
    for (const std::string& argument : arguments) {
        const bool plain = !argument.empty() && argument.find_first_of(" \t\n\"'\\$*") == std::string::npos;
        line.append(" ").append(plain ? argument : testing::PrintToString(argument));
    }
    return line;
}

Headers expectedHeaders(const RecordedRequest& request) {
    Headers headers{{"Host", "localhost:" + std::to_string(applicationPort)}};
    if (!request.body.empty()) {
        headers.emplace_back("Content-Type", "application/json");
        headers.emplace_back("Content-Length", std::to_string(request.body.size()));
    }
    return headers;
}

} // namespace

void expectRow(const CommandRow& row) {
    SCOPED_TRACE(commandLine(row.arguments));
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

void expectRefused(const std::vector<std::string>& arguments, const std::string& message, const std::string& usage,
                   const ToolSetting& setting) {
    SCOPED_TRACE(commandLine(arguments));
    const ScriptedService service;
    const ToolResult result = runTool(arguments, setting);
    const std::string start = "Error: " + message + "\nUsage: " + usage;
    EXPECT_EQ(result.err.substr(0, start.size()), start);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.status, 64);
}

void expectFailed(const std::vector<std::string>& arguments, const std::vector<Answer>& answers,
                  const std::string& message, const ToolSetting& setting) {
    SCOPED_TRACE(commandLine(arguments));
    const ScriptedService service(answers);
    const ToolResult result = runTool(arguments, setting);
    EXPECT_EQ(result.err, "Error: " + message + "\n");
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.status, 1);
}

void expectServiceRefusal(const std::vector<std::string>& arguments, std::vector<Answer> before,
                          const ToolSetting& setting) {
    SCOPED_TRACE(commandLine(arguments));
    before.push_back(answer(400, R"({"message":"x"})"));
    const ScriptedService service(std::move(before));
    const ToolResult result = runTool(arguments, setting);
    EXPECT_EQ(result.err, "error: x\n");
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.status, 1);
}

} // namespace testsupport
