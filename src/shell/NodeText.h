// The text of a single node, which `cat`, `head` and `tail` print.
#pragma once

#include <string>
#include <string_view>

#include "core/CommandModel.h"

namespace orvane {

/// How much of a text's beginning or end to print.
struct LineCountOptions final : ParsableArguments {
    Option<Integer> lines{
        *this, "lines", 10, "Number of lines to print (default: 10).", {.names = {longName(), customShort("n")}}};
};

/// Throws ValidationError unless there is a line to print.
void validateLines(Integer lines);

/// Requests the node at `path` and prints its text: bare in a pipe, below a line about the node at a terminal. Throws
/// CLIError, which names `verb` and the node, for a directory, before anything is printed.
void printNodeText(const std::string& path, std::string_view verb, const std::string& id);

} // namespace orvane
