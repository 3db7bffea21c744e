// `mkdir`: a new folder.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Mkdir final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> name{*this, "name", "The folder name."};
    Argument<std::optional<std::string>> parent{*this, "parent",
                                                "Optional parent folder ID. Omit to create at the top level."};
    Option<std::optional<std::string>> emoji{*this, "emoji", "A single emoji character for the folder."};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
