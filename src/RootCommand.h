// The root of the command tree, which alone knows the families of commands.
#pragma once

#include "ArgumentParser/CommandType.h"

namespace orvane {

argumentparser::CommandType rootCommand();

} // namespace orvane
