// What the commands that read a single node share.
#pragma once

#include <string>
#include <string_view>

#include "core/Query.h"

namespace orvane {

/// The path of one node with a query.
std::string nodePath(const std::string& id, const QueryItems& items);

/// Requests the node at `path` and prints its text: bare in a pipe, below a line about the node at a terminal. Throws
/// CLIError, which names `verb` and the node, for a directory, before anything is printed.
void readNodeText(const std::string& path, std::string_view verb, const std::string& id);

} // namespace orvane
