// Moves parsed values into a command's inputs, and keeps account of what was taken.
#pragma once

#include <memory>
#include <vector>

#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

/// A decoded command, so that its descendants can find it.
struct DecodedArguments {
    CommandType type;
    std::unique_ptr<ParsableCommand> value;
};

class ArgumentDecoder {
public:
    ArgumentDecoder(const ParsedValues& values, const std::vector<DecodedArguments>& previouslyDecoded)
        : values_(&values), previouslyDecoded_(&previouslyDecoded) {}

    /// The value of `key`, counted as used; nothing when there is none.
    const std::any* take(const InputKey& key);
    /// The places of everything taken so far.
    const InputOrigin& usedOrigins() const { return usedOrigins_; }
    /// An ancestor of the command being decoded. Throws ParserError: NotParentCommand.
    const ParsableCommand& ancestor(const CommandType& type) const;

private:
    const ParsedValues* values_;
    const std::vector<DecodedArguments>* previouslyDecoded_;
    InputOrigin usedOrigins_;
};

} // namespace argumentparser
