// Parsing one command's own inputs out of a command line, leaving the rest for others.
#pragma once

#include "ArgumentParser/ArgumentDefinition.h"
#include "ArgumentParser/SplitArguments.h"
#include "ArgumentParser/Tree.h"

namespace argumentparser {

/// The values of `arguments`, the inputs of the command at `node`, found among `input`, defaults included. Whatever
/// they don't recognise is left alone. Throws ParserError.
ParsedValues parseLeniently(const ArgumentSet& arguments, const SplitArguments& input, const Tree& node);

/// Gives what is left in `input` to the command's `allUnrecognized` list. Throws ParserError.
void captureUnrecognized(const ArgumentSet& arguments, const SplitArguments& input, ParsedValues& values);

/// Whether `arguments` has a list that takes what nothing else claims.
bool capturesUnrecognized(const ArgumentSet& arguments);

} // namespace argumentparser
