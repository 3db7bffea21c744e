// The end of a process whose commands are declared wrongly.
#pragma once

#include <string_view>

namespace argumentparser {

/// Prints `message` in a banner on standard error and ends the process with status 1. For faults of a declaration
/// only, which no command line can cause or mend.
[[noreturn]] void configurationFailure(std::string_view message);

} // namespace argumentparser
