// What the tests of the commands that print the service's JSON share.
#pragma once

#include <gtest/gtest.h>

#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

namespace testsupport {

inline const std::string id = "7F1b103c-DF15-42b0-aab4-77d26415479c";
inline const std::string other = "90c192cf-d3ac-44af-8f21-ddb66cad4a26";

/// Nearly UUIDs.
inline const std::vector<std::string> notUUIDs{"", "abc", "grp_x", "{" + id + "}", id + " ", id.substr(1) + "g"};

/// A run that sends `request` and prints the answer byte for byte.
inline CommandRow requestRow(std::vector<std::string> arguments, std::string request) {
    const std::string bytes = "{ \"z\":1.50,\n\t\"a\":\"\\u00e9\\/\" ,\"z\":[] }\r\n";
    return {.arguments = std::move(arguments),
            .answers = {answer(bytes)},
            .requests = {std::move(request)},
            .out = bytes + "\n"};
}

/// Each row, and where it asks the service, the same command line refused by it.
inline void expectRequests(const std::vector<CommandRow>& rows) {
    for (const CommandRow& row : rows) {
        expectRow(row);
        if (!row.requests.empty()) {
            expectServiceRefusal(row.arguments, {}, row.setting);
        }
    }
}

/// `arguments` with `more` behind them.
inline std::vector<std::string> with(std::vector<std::string> arguments, const std::vector<std::string>& more) {
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

/// Refused because `command`, whose usage is `inputs`, lacks the required `input`, whose help is `help`.
inline void expectMissing(const std::vector<std::string>& command, const std::string& input, const std::string& help,
                          const std::string& inputs) {
    const std::string words = "orvane-cli " + command[0] + " " + command[1];
    expectRow({.arguments = command,
               .err = "Help:  " + input + "  " + help + "\nError: Missing expected argument '" + input +
                      "'\nUsage: " + words + " " + inputs + "\n  See '" + words + " --help' for more information.\n",
               .status = 64});
}

/// Tests whose options name files.
class LibraryFiles : public TemporaryFiles {};

} // namespace testsupport
