// The tool's own error type.
#pragma once

#include <string>

#include "ArgumentParser/CommandExit.h"

namespace orvane {

/// What a command can fail of; its text is what the user reads.
struct CLIError : argumentparser::CommandFailure {
    /// The exchange with the application failed in a way of its own.
    static CLIError communicationFailed(const std::string& message);
    /// Something given is unacceptable, found out while the command runs.
    static CLIError invalidInput(const std::string& message);
    static CLIError appNotRunning();
    static CLIError requestTimedOut();
    static CLIError connectionInterrupted();
};

} // namespace orvane
