// The request for a completion script.
#pragma once

#include <optional>

#include "ArgumentParser/ParserError.h"
#include "ArgumentParser/SplitArguments.h"
#include "ArgumentParser/Tree.h"

namespace argumentparser {

/// Whether the command line asks the tool with the root `root` for a script, and for which shell's. Nothing for a tool
/// that is a plug-in of another.
std::optional<CompletionScriptRequested> completionScriptRequest(const SplitArguments& split, const Tree& root);

} // namespace argumentparser
