// `sed`: an exact text of a context replaced by another.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Sed final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the context to edit."};
    Option<std::optional<std::string>> oldText{
        *this, "oldText", "The exact text to find.", {.names = {customLong("old")}}};
    Option<std::optional<std::string>> oldFile{*this, "oldFile",
                                               "Path to a file with the text to find. Mutually exclusive with --old."};
    Option<std::optional<std::string>> newText{
        *this, "newText", "The replacement text.", {.names = {customLong("new")}}};
    Option<std::optional<std::string>> newFile{
        *this, "newFile", "Path to a file with the replacement text. Mutually exclusive with --new."};
    Flag<bool> all{*this, "all", "Replace all occurrences instead of just the first."};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
