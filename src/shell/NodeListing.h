// The listing that `ls` and `find` share.
#pragma once

#include <string>
#include <string_view>

#include "core/CommandModel.h"

namespace orvane {

/// Requests the page at `path` and prints it: a summary on standard error, which names `verb` and how to go on, and a
/// table on standard output; or the answer as it came, with `json` or when it holds no page. `offset` is what was asked
/// for, in case the answer doesn't tell. Throws CLIError, or ExitCode behind a reported error.
void renderNodeListing(const std::string& path, std::string_view verb, Integer offset, bool json);

} // namespace orvane
