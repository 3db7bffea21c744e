// The one-line reports of completed changes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane {

/// What is absent or empty leaves no trace.
struct MutationLine {
    std::string_view verb; ///< Such as "created folder".
    std::optional<std::string_view> name = {};
    std::optional<std::string_view> id = {};
    std::string detail = {};
};

/// Prints `text` as one line, whatever line ends the service's words have in it.
void printReportLine(std::string_view text);

/// Prints such as: created folder "Notes"  <id>  <detail>
void printMutationLine(const MutationLine& line);

} // namespace orvane
