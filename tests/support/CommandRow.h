// Whole commands as rows of a table: a command line, the service's answers, and what must be seen.
#pragma once

#include <string>
#include <vector>

#include "support/ScriptedService.h"
#include "support/ToolRunner.h"

namespace testsupport {

/// A command line with everything that it must lead to. All of it is compared for equality. Each request must also
/// carry the headers Host, and with a body Content-Type (application/json) and Content-Length, and no other.
struct CommandRow {
    std::vector<std::string> arguments{};
    std::vector<Answer> answers{};
    std::vector<std::string> requests{}; ///< "METHOD target", or "METHOD target\nbody".
    std::string out{};
    std::string err{};
    int status = 0;
    ToolSetting setting{};
};

/// Runs the row against a service of its own.
void expectRow(const CommandRow& row);
void expectRows(const std::vector<CommandRow>& rows);

/// Refused by a check: status 64, "Error: <message>" and a usage line that begins with `usage` on standard error,
/// nothing on standard output, nothing sent.
void expectRefused(const std::vector<std::string>& arguments, const std::string& message, const std::string& usage = {},
                   const ToolSetting& setting = {});

/// Failed: status 1, exactly "Error: <message>" on standard error, nothing on standard output.
void expectFailed(const std::vector<std::string>& arguments, const std::vector<Answer>& answers,
                  const std::string& message, const ToolSetting& setting = {});

/// Refused by the service, after `before` were answered: the service's message on standard error, nothing on standard
/// output, status 1.
void expectServiceRefusal(const std::vector<std::string>& arguments, std::vector<Answer> before = {},
                          const ToolSetting& setting = {});

} // namespace testsupport
