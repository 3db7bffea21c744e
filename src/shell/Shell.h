// The library as a file system: nodes are files and directories, and a UUID stands where a path would stand.
#pragma once

#include "ArgumentParser/CommandType.h"

namespace orvane {

argumentparser::CommandType deleteCommand();
argumentparser::CommandType lsCommand();
argumentparser::CommandType findCommand();
argumentparser::CommandType catCommand();
argumentparser::CommandType headCommand();
argumentparser::CommandType tailCommand();
argumentparser::CommandType statCommand();
argumentparser::CommandType grepCommand();
argumentparser::CommandType mkdirCommand();
argumentparser::CommandType teeCommand();
argumentparser::CommandType sedCommand();
argumentparser::CommandType replaceLinesCommand();
argumentparser::CommandType mvCommand();
argumentparser::CommandType rmCommand();
argumentparser::CommandType rmdirCommand();

} // namespace orvane
