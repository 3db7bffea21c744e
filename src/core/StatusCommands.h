// Whether the application is there, and who is signed in.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Status final : ParsableCommand {
    static CommandConfiguration configuration();
    void run() const override;
};

struct WhoAmI final : ParsableCommand {
    static CommandConfiguration configuration();
    void run() const override;
};

} // namespace orvane
