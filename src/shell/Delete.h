// `delete`: a transcript chat deleted, after a preview and a yes from a person.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Delete final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the active local transcript chat."};

    void run() const override;
};

} // namespace orvane
