// The parts of completion scripts that are the same for every tool, in the language of the shell. "@id@" stands for the
// tool's identifier, the name of the root's function without its underscore in front.
#pragma once

#include <string_view>

namespace argumentparser {

/// The start of a script, with the helper functions.
extern const std::string_view bashHelpers;
extern const std::string_view zshHelpers;
extern const std::string_view fishHelpers;

/// What only the function of the root does, ahead of what the function of each command does.
extern const std::string_view bashRootStart;
extern const std::string_view zshRootStart;

} // namespace argumentparser
