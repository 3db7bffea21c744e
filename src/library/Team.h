// `team`: the teams that the account belongs to.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Team final : ParsableCommand {
    static CommandConfiguration configuration();
};

struct TeamList final : ParsableCommand {
    static CommandConfiguration configuration();

    void run() const override;
};

} // namespace orvane
