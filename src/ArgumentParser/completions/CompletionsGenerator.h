// Completion scripts, made from the command tree.
#pragma once

#include <string>

#include "ArgumentParser/completions/CompletionModel.h"
#include "ArgumentParser/completions/CompletionShell.h"
#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

/// The script that completes the command lines of the tool with the root `root`. It ends without a line feed.
std::string completionScript(const Tree& root, CompletionShell shell);

/// The same for one shell each, ending with a line feed.
std::string bashCompletionScript(const CompletionCommand& root);
std::string zshCompletionScript(const CompletionCommand& root);
std::string fishCompletionScript(const CompletionCommand& root);

} // namespace argumentparser
