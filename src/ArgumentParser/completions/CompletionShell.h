// The shells that there are completion scripts for, and the one that is asking.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace argumentparser {

enum class CompletionShell { zsh, bash, fish };

/// In the order in which messages list them.
inline constexpr std::array<std::string_view, 3> completionShellNames{"zsh", "bash", "fish"};

/// The shell of exactly this name; nothing for any other text.
std::optional<CompletionShell> completionShell(std::string_view name);

/// The user's shell, by the last component of the variable SHELL; nothing for one without a script.
std::optional<CompletionShell> autodetectedCompletionShell();

/// For the functions that compute candidates: the shell whose script is asking, and its version as the shell states
/// it. Nothing when no script is.
std::optional<CompletionShell> requestingCompletionShell();
std::optional<std::string> requestingCompletionShellVersion();

} // namespace argumentparser
