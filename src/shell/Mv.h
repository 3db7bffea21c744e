// `mv`: a context or folder moved, renamed or taken out of its folder.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Mv final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the context or folder."};
    Option<std::optional<std::string>> to{*this, "to", "Destination folder UUID (move)."};
    Option<std::optional<std::string>> name{*this, "name", "New name (rename)."};
    Flag<bool> unfiled{*this, "unfiled", "Remove the context or folder from its parent."};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
