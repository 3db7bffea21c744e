// The root of the command tree.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct OrvaneCLI final : ParsableCommand {
    static CommandConfiguration configuration();
};

} // namespace orvane
