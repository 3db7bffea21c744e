// Which part of a listing, or of a text that is read in chunks, a command asks for.
#pragma once

#include "core/CommandModel.h"
#include "core/service/Query.h"

namespace orvane {

/// The page of a text; all of it without either.
struct ChunkPageOptions final : ParsableArguments {
    Option<std::optional<Integer>> offset{*this, "offset",
                                          "Starting chunk index (0-based). Omit to read from the beginning."};
    Option<std::optional<Integer>> limit{*this, "limit", "Maximum number of chunks to read. Omit to read all."};

    /// The query of the options that are given.
    QueryItems items() const;
};

/// How much of a text's beginning and of its end to read.
struct HeadTailOptions final : ParsableArguments {
    Option<std::optional<Integer>> headLimit{*this, "head-limit",
                                             "Optional number of beginning chunks/messages to read (max: 25)."};
    Option<std::optional<Integer>> tailLimit{*this, "tail-limit",
                                             "Optional number of recent tail chunks/messages to read (max: 25)."};

    /// Throws ValidationError for a limit that is given and not 1 to 25. Commands make this check in their own order.
    void checkLimits() const;
    /// The query of the options that are given.
    QueryItems items() const;
};

/// Throws CLIError when `limit` is above 500; there is no lower bound. For listings that check while they run.
void requireListLimit(Integer limit);

} // namespace orvane
