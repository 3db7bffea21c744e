// `replace-lines`: a block of whole lines of a context replaced or deleted.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct ReplaceLines final : ParsableCommand {
    static CommandConfiguration configuration();

    Argument<std::string> id{*this, "id", "The UUID of the context to edit."};
    Option<std::vector<std::string>> oldLine{
        *this, "oldLine", {}, "An exact existing line. Repeat for a multi-line block."};
    Option<std::optional<std::string>> oldFile{
        *this, "oldFile", "Path containing the exact existing lines. Mutually exclusive with --old-line."};
    Option<std::vector<std::string>> newLine{
        *this, "newLine", {}, "A replacement line. Repeat for a multi-line block."};
    Option<std::optional<std::string>> newFile{
        *this, "newFile", "Path containing replacement lines. Mutually exclusive with --new-line and --delete."};
    Flag<bool> deleteLines{*this,
                           "deleteLines",
                           "Delete the matched lines, including the correct adjacent separator.",
                           {.names = {customLong("delete")}}};

    void validate() const override;
    void run() const override;
};

} // namespace orvane
