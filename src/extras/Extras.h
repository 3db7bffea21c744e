// The words of the account: whether the application is there, and who is signed in.
#pragma once

#include "ArgumentParser/CommandType.h"

namespace orvane {

argumentparser::CommandType statusCommand();
argumentparser::CommandType whoamiCommand();

} // namespace orvane
