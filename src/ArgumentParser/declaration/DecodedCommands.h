// The commands that were decoded on the way down the tree.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

/// Owns the commands, root first, so that a descendant can find its ancestors.
class DecodedCommands {
public:
    /// The command that was added last. There must be one.
    const ParsableCommand& last() const { return *commands_.back().second; }
    void add(const CommandType& type, std::unique_ptr<ParsableCommand> command) {
        commands_.emplace_back(type, std::move(command));
    }
    /// Throws ParserError: NotParentCommand.
    const ParsableCommand& ancestor(const CommandType& type) const;

private:
    std::vector<std::pair<CommandType, std::unique_ptr<ParsableCommand>>> commands_;
};

} // namespace argumentparser
