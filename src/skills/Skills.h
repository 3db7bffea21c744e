// Skills for coding agents, kept in the library. Everything on disk is the application's work: the tool only asks.
#pragma once

#include "ArgumentParser/CommandType.h"

namespace orvane {

argumentparser::CommandType skillCommand();

} // namespace orvane
