// The text of a single node, which `cat`, `head` and `tail` print.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// Requests the node at `path` and prints its text: bare in a pipe, below a line about the node at a terminal. Throws
/// CLIError, which names `verb` and the node, for a directory, before anything is printed.
void printNodeText(const std::string& path, std::string_view verb, const std::string& id);

} // namespace orvane
