// What a command throws from `validate` or `run` to end in a way of its own.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "ArgumentParser/CommandType.h"

namespace argumentparser {

/// The input is unacceptable: the message is shown with the usage, and the process ends with status 64.
struct ValidationError {
    std::string message;
};

/// The command failed: the message is shown on one line or several, and the process ends with status 1.
struct CommandFailure {
    std::string message;
};

/// Ends the process with status 0 behind a text on standard output.
struct CleanExit {
    struct HelpRequest {
        std::optional<CommandType> command; ///< Nothing for the current command.
    };
    struct Message {
        std::string text;
    };
    struct DumpRequest {
        std::optional<CommandType> command; ///< Nothing for the current command.
    };
    std::variant<HelpRequest, Message, DumpRequest> reason;

    static CleanExit helpRequest(std::optional<CommandType> command = std::nullopt) { return {HelpRequest{command}}; }
    static CleanExit dumpRequest(std::optional<CommandType> command = std::nullopt) { return {DumpRequest{command}}; }
    static CleanExit message(std::string text) { return {Message{std::move(text)}}; }
};

/// Ends the process with exactly this status and prints nothing.
struct ExitCode {
    int rawValue = 0;

    static constexpr int success = 0;
    static constexpr int failure = 1;
    static constexpr int validationFailure = 64; ///< EX_USAGE
};

} // namespace argumentparser
