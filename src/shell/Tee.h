// `tee`: a new context, whose body comes from a pipe or a file.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Tee final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> title{*this, "title", "The title of the context."};
    Option<std::optional<std::string>> fromFile{*this, "fromFile",
                                                "Path to a file containing the markdown body. Overrides stdin."};
    Option<std::optional<std::string>> emoji{*this, "emoji", "A single emoji character for the context."};
    Option<std::optional<std::string>> folder{*this, "folder", "The UUID of the folder to place the context in."};
    Option<std::vector<std::string>> sources{*this,
                                             "sources",
                                             {},
                                             "Source document UUIDs for provenance tracking.",
                                             {.parsing = ParsingStrategy::upToNextOption}};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
