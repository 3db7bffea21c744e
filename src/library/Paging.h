// Which part of a listing, or of a text that is read in chunks, a command asks for.
#pragma once

#include <optional>
#include <string>

#include "core/CommandModel.h"
#include "core/Query.h"

namespace orvane {

/// The page of a text; all of it without either.
struct ChunkPageOptions final : ParsableArguments {
    Option<std::optional<Integer>> offset{*this, "offset",
                                          "Starting chunk index (0-based). Omit to read from the beginning."};
    Option<std::optional<Integer>> limit{*this, "limit", "Maximum number of chunks to read. Omit to read all."};
};

/// How much of a text's beginning and of its end to read.
struct HeadTailOptions final : ParsableArguments {
    Option<std::optional<Integer>> headLimit{*this, "headLimit",
                                             "Optional number of beginning chunks/messages to read (max: 25)."};
    Option<std::optional<Integer>> tailLimit{*this, "tailLimit",
                                             "Optional number of recent tail chunks/messages to read (max: 25)."};
};

/// The queries of the options that are given.
QueryItems chunkPageItems(const ChunkPageOptions& options);
QueryItems headTailItems(const HeadTailOptions& options);

/// What is wrong with a limit that is given and not 1 to 25; nothing when all is well. Whether that is found while the
/// input is checked or while the command runs is the command's own matter.
std::optional<std::string> headTailFault(const HeadTailOptions& options);

/// Throws CLIError when `limit` is above 500; there is no lower bound. For listings that check while they run.
void requireListLimit(Integer limit);

} // namespace orvane
