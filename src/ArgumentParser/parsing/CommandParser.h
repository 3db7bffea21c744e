// From a command line to a decoded command.
#pragma once

#include <span>
#include <string_view>

#include "ArgumentParser/declaration/ArgumentSet.h"
#include "ArgumentParser/declaration/DecodedCommands.h"
#include "ArgumentParser/declaration/ParserError.h"
#include "ArgumentParser/declaration/Tree.h"
#include "ArgumentParser/parsing/SplitArguments.h"

namespace argumentparser {

class CommandParser {
public:
    /// `builtIn` as the tree has it.
    explicit CommandParser(const CommandType& root, const std::optional<CommandType>& builtIn = std::nullopt)
        : commandTree_(root, builtIn), currentNode_(&commandTree_) {}

    const Tree& commandTree() const { return commandTree_; }

    /// The command that `arguments` (without the program's name) select, decoded and validated. It lives as long as
    /// the parser; `arguments` is no longer needed afterwards. To be called once. Throws CommandError; memory that ran
    /// out stays std::bad_alloc.
    const ParsableCommand& parse(std::span<const std::string_view> arguments);

private:
    void descend(SplitArguments& split);
    void parseCurrent(SplitArguments& split);
    /// Decodes and validates `command`. What a hook throws becomes a UserValidationError.
    void decode(ParsableCommand& command);
    void checkForBuiltInFlags(const SplitArguments& split) const;
    void checkForLeftovers(const SplitArguments& split) const;

    Tree commandTree_;
    const Tree* currentNode_;
    DecodedCommands decodedCommands_;
};

} // namespace argumentparser
