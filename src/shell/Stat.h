// `stat`: what a node is and where it sits.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Stat final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the node."};
    Flag<bool> json{*this, "json", "Output the raw JSON response instead of the formatted view."};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
