// Candidates that only the running tool can compute, asked for by a completion script.
//
// A script calls the tool with "---completion", the words of a subcommand, "--", the identifier of one of its inputs,
// the index of the cursor's word, the index of the cursor in that word, and the words of the command line as it
// stands, the tool's own first. Without the indices, the cursor is at the end of the last word; without the second, at
// the end of its word.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

inline constexpr std::string_view customCompletionWord = "---completion";

/// The candidates, worded for the script that asks. `request` is what stands behind "---completion". Throws
/// ParserError: InvalidState for a request that no script makes, and whatever the input's function throws.
std::string customCompletion(const Tree& root, std::span<const std::string_view> request);

} // namespace argumentparser
