// One run of a tool: its command line parsed, one command run, every error turned into text and a status.
#pragma once

#include <optional>

#include "ArgumentParser/CommandType.h"
#include "ArgumentParser/messages/MessageInfo.h"

namespace argumentparser {

/// Runs the command of the tree below `root` that the process's arguments select, and gives the process's exit status.
/// Arguments that are not valid UTF-8 keep their bytes only in files' names, and are repaired elsewhere. Whatever is
/// thrown is printed here: help on standard output, failures on standard error.
int runCommandLine(const CommandType& root, int argumentCount, const char* const* arguments);

/// The same without printing and without a status: what the user is to be told; nothing when the command ran to its
/// end.
std::optional<MessageInfo> run(const CommandType& root, int argumentCount, const char* const* arguments);

} // namespace argumentparser
