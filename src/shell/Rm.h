// `rm` and `rmdir`: a context or an empty folder deleted, without asking.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Rm final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the context."};

    void run() const override;
};

struct Rmdir final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the folder."};

    void run() const override;
};

} // namespace orvane
