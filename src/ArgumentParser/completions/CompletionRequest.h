// Command lines that ask for completions, by a user who sets up a shell or by a completion script.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "ArgumentParser/declaration/ParserError.h"
#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

/// What ends a run whose `arguments` ask the tool with the root `root` for a completion script, or are a script's
/// request for candidates: CompletionScriptRequested, CompletionScriptCustomResponse, or what is wrong with the
/// request. Nothing for any other. Throws whatever an input's function throws.
std::optional<CommandError> completionRequest(const Tree& root, std::span<const std::string_view> arguments);

} // namespace argumentparser
