// The words that print the service's JSON: the library by its explicit names, and the agents' check-in.
#pragma once

#include "ArgumentParser/CommandType.h"

namespace orvane {

argumentparser::CommandType checkInCommand();
argumentparser::CommandType profileCommand();
argumentparser::CommandType searchCommand();
argumentparser::CommandType teamCommand();
argumentparser::CommandType integrationCommand();
argumentparser::CommandType nodeCommand();
argumentparser::CommandType sourceCommand();
argumentparser::CommandType contextCommand();
argumentparser::CommandType folderCommand();
argumentparser::CommandType transcriptCommand();

} // namespace orvane
