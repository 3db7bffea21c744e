// Command lines that ask for completions, by a user who sets up a shell or by a completion script.
#pragma once

#include <span>
#include <string_view>

#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

/// Does nothing unless `arguments` ask the tool with the root `root` for a completion script, or are a script's request
/// for candidates. Throws CommandError: CompletionScriptRequested, CompletionScriptCustomResponse, or what is wrong
/// with the request; and whatever an input's function throws.
void answerCompletionRequest(const Tree& root, std::span<const std::string_view> arguments);

} // namespace argumentparser
