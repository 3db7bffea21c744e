// The table of nodes that `ls` and `find` print.
#pragma once

#include <string>
#include <string_view>

#include "core/CommandModel.h"

namespace orvane {

struct NodeListing {
    std::string path;      ///< Of the page to request.
    std::string_view verb; ///< Which the summary names.
    Integer offset = 0;    ///< What was asked for, in case the answer doesn't tell.
    bool json = false;     ///< Whether the answer is printed as it came.
};

/// Requests the page and prints it: a summary on standard error, with how to go on, and a table on standard output; or
/// the answer as it came, also when it holds no page. Throws CLIError, or ExitCode behind a reported error.
void renderNodeListing(const NodeListing& listing);

} // namespace orvane
