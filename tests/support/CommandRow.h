// Whole commands as rows of a table: a command line, the service's answers, and what must be seen.
//
// A failure names the line of its row. Rows in a list are therefore written with their type or function in front
// (`Reply{…}`, `row(…)`): for bare braces the compiler knows only the line of the call around the list.
#pragma once

#include <source_location>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/ScriptedService.h"
#include "support/ToolRunner.h"

namespace testsupport {

/// The words of a command line. A text is split at its blanks; a list is taken as it is.
struct Words : std::vector<std::string> {
    using std::vector<std::string>::vector;
    Words(const char* line) : Words(std::string(line)) {}
    Words(const std::string& line);
};

using Location = std::source_location;

/// UUIDs with digits of either case, for any command takes both and sends what it was given.
inline const std::string id = "7F1b103c-DF15-42b0-aab4-77d26415479c";
inline const std::string other = "90C192cf-d3ac-44AF-8f21-ddb66cad4a26";

/// The same as commands send them that give every id in one form.
inline const std::string lowerId = "7f1b103c-df15-42b0-aab4-77d26415479c";
inline const std::string lowerOther = "90c192cf-d3ac-44af-8f21-ddb66cad4a26";

/// A command line with everything that it must lead to. All of it is compared for equality. Each request must also
/// carry the headers Host, and with a body Content-Type (application/json) and Content-Length, and no other.
struct CommandRow {
    Words arguments{};
    std::vector<Answer> answers{};
    std::vector<std::string> requests{}; ///< "METHOD target", or "METHOD target\nbody".
    std::string out{};
    std::string err{};
    int status = 0;
    ToolSetting setting{};
    Location where = Location::current();
};

/// A run that sends `request`, gets `reply` with status 200 and prints `out`.
CommandRow row(Words arguments, std::string request, std::string reply, std::string out,
               Location where = Location::current());

/// A run that sends `request` and prints the answer byte for byte.
CommandRow requestRow(Words arguments, std::string request, Location where = Location::current());

/// The row with standard output on a terminal.
CommandRow onTerminal(CommandRow row);
CommandRow withInput(CommandRow row, Input input);

/// The row when it ends at its last question: a request and an answer fewer, status 1, `out` and "Error: <message>".
CommandRow stopped(CommandRow row, std::string out, const std::string& message);

/// `arguments` with `more` behind them.
Words with(Words arguments, const Words& more);

/// Runs the row against a service of its own.
void expectRow(const CommandRow& row);
void expectRows(const std::vector<CommandRow>& rows);

/// One answer of the service, and what the tool makes of it.
struct Reply {
    explicit Reply(std::string replyBody, std::string output, std::string notes = {},
                   Location location = Location::current())
        : body(std::move(replyBody)), out(std::move(output)), err(std::move(notes)), where(location) {}

    std::string body;
    std::string out;
    std::string err;
    Location where;
};

/// The same run, which sends `request` and writes to `out`, with each of the answers.
void expectReplies(const Words& arguments, const std::string& request, const std::vector<Reply>& replies,
                   const Output& out = {});

/// Refused before anything was sent: status 64, nothing on standard output, and on standard error exactly
/// "Error: <message>", the usage line of the command that `arguments` run, as its help screen has it, and where to
/// read on.
void expectRefused(const Words& arguments, const std::string& message, Location where = Location::current());

/// The same by a check that is made while the command runs: the usage is the root's.
void expectRefusedByRun(const Words& arguments, const std::string& message, const ToolSetting& setting = {},
                        Location where = Location::current());

/// Failed: status 1, exactly "Error: <message>" on standard error, nothing on standard output.
void expectFailed(const Words& arguments, const std::vector<Answer>& answers, const std::string& message,
                  Location where = Location::current());

/// Refused by the service, after `before` were answered: the service's message on standard error, nothing on standard
/// output, status 1.
void expectServiceRefusal(const Words& arguments, std::vector<Answer> before = {}, const ToolSetting& setting = {},
                          Location where = Location::current());

} // namespace testsupport
