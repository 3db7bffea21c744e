// The one-line synopsis of a command.
#pragma once

#include <string>
#include <vector>

#include "ArgumentParser/declaration/ArgumentSet.h"
#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

/// The names of the commands from the root to `node`, behind the root's super command, if it has one.
std::vector<std::string> toolNames(const Tree& node);

/// The names of the commands from the root to `node`, joined by spaces.
std::string commandNames(const Tree& node);

/// How the command at `node`, with the inputs `arguments`, is called: its own usage text, else its synopsis. Empty for
/// no usage.
std::string usageText(const Tree& node, const ArgumentSet& arguments);

/// "Usage: " and the usage text, further lines indented below it; empty for no usage.
std::string usageMessage(const Tree& node, const ArgumentSet& arguments);

/// The call of the `help` command for a subcommand of the one at `node`.
std::string subcommandHelpCall(const Tree& node);

} // namespace argumentparser
