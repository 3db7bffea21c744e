// Questions that only a person at a terminal can answer.
#pragma once

#include <string_view>

namespace orvane {

struct Question {
    std::string_view message; ///< Shown first, on lines of its own.
    std::string_view prompt;
    std::string_view noTerminal; ///< The failure without a terminal on standard input; nothing is shown then.
    std::string_view refused;    ///< The failure after any answer but "y" or "yes".
};

/// Asks, and returns on a yes. Throws CLIError.
void confirm(const Question& question);

inline constexpr std::string_view deletionNeedsTerminal = "Deletion requires interactive confirmation from a terminal.";

/// Asks whether the deletion that `message` describes shall go on. Throws CLIError, without a terminal `noTerminal`.
void confirmDeletion(std::string_view message, std::string_view noTerminal = deletionNeedsTerminal);

} // namespace orvane
