// The one-line synopsis of a command.
#pragma once

#include <string>
#include <vector>

#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

/// The names of `stack`, root first, joined by blanks.
std::string commandNames(const std::vector<CommandType>& stack);

/// The same behind the root's super command, if it has one.
std::string toolName(const std::vector<CommandType>& stack);

/// How the last command of `stack` is called: its own usage text, else its synopsis. Empty for no usage.
std::string usageText(const std::vector<CommandType>& stack, const ArgumentSet& arguments);

/// "Usage: " and the usage text, further lines indented below it; empty for no usage.
std::string usageMessage(const std::vector<CommandType>& stack, const ArgumentSet& arguments);

} // namespace argumentparser
