// The words for a failed parse.
#pragma once

#include <string>
#include <vector>

#include "ArgumentParser/ParserError.h"

namespace argumentparser {

/// The message of an error that is a failure, and no request for help or the version.
std::string errorMessage(const CommandError& error);

/// The help line of the input that the error is about: its form and its abstract; empty where there is none.
std::string errorHelpLine(const CommandError& error);

/// What an error thrown by a command or a transform says of itself; empty when it says nothing.
std::string errorDescription(const std::exception_ptr& error);

} // namespace argumentparser
