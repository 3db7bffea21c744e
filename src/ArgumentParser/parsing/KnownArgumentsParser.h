// Parsing one command's own inputs out of a command line, leaving the rest for others.
#pragma once

#include "ArgumentParser/declaration/ArgumentSet.h"
#include "ArgumentParser/declaration/Tree.h"
#include "ArgumentParser/parsing/SplitArguments.h"

namespace argumentparser {

/// Records the occurrences of `arguments`, the inputs of the command at `node`, among what is unused in `input`, and
/// marks them used. Whatever the command doesn't know is left alone. Throws ParserError.
void parseKnownArguments(const ArgumentSet& arguments, SplitArguments& input, const Tree& node);

/// Gives what is left in `input` to `list`, an `allUnrecognized` one, and marks it used. Throws ParserError.
void captureUnrecognized(const ArgumentDefinition& list, SplitArguments& input);

} // namespace argumentparser
