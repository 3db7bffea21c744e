// From a command line to a decoded command.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "ArgumentParser/declaration/ArgumentSet.h"
#include "ArgumentParser/declaration/DecodedCommands.h"
#include "ArgumentParser/declaration/ParserError.h"
#include "ArgumentParser/declaration/Tree.h"
#include "ArgumentParser/parsing/SplitArguments.h"

namespace argumentparser {

/// What a command line comes to: a command to run, or why there is none.
using ParsedCommandLine = std::variant<const ParsableCommand*, CommandError>;

class CommandParser {
public:
    /// `builtIn` as the tree has it.
    explicit CommandParser(const CommandType& root, const std::optional<CommandType>& builtIn = std::nullopt)
        : commandTree_(root, builtIn), currentNode_(&commandTree_) {}

    const Tree& commandTree() const { return commandTree_; }

    /// The command that `arguments` (without the program's name) select, decoded and validated. It lives as long as
    /// the parser; `arguments` is no longer needed afterwards. To be called once. Throws std::bad_alloc alone.
    ParsedCommandLine parse(std::span<const std::string_view> arguments);

private:
    // Each gives what was asked for in place of the command; it is no error, so that none is thrown for it.
    std::optional<ParserError> descend(SplitArguments& split);
    std::optional<ParserError> parseCurrent(SplitArguments& split);
    std::optional<ParserError> builtInRequest(const SplitArguments& split) const;
    /// Decodes and validates `command`. What a hook throws becomes a UserValidationError.
    void decode(ParsableCommand& command);
    void checkForLeftovers(const SplitArguments& split) const;

    Tree commandTree_;
    const Tree* currentNode_;
    DecodedCommands decodedCommands_;
};

} // namespace argumentparser
