// The request for a completion script.
#pragma once

#include <optional>

#include "ArgumentParser/declaration/ParserError.h"
#include "ArgumentParser/declaration/Tree.h"
#include "ArgumentParser/parsing/SplitArguments.h"

namespace argumentparser {

/// Whether the command line asks the tool with the root `root` for a script, and for which shell's. Nothing for a tool
/// that is a plug-in of another.
std::optional<CompletionScriptRequested> completionScriptRequest(const SplitArguments& split, const Tree& root);

} // namespace argumentparser
