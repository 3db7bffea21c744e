// From a command line to a decoded command.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "ArgumentParser/ArgumentDecoder.h"
#include "ArgumentParser/ParserError.h"
#include "ArgumentParser/SplitArguments.h"
#include "ArgumentParser/Tree.h"

namespace argumentparser {

class CommandParser {
public:
    explicit CommandParser(const CommandType& root);

    const Tree& commandTree() const { return commandTree_; }

    /// The command that `arguments` (without the program's name) select, decoded and validated. It lives as long as
    /// the parser; `arguments` is no longer needed afterwards. To be called once. Throws CommandError.
    const ParsableCommand& parse(std::span<const std::string> arguments);

private:
    void descend(SplitArguments& split);
    void parseCurrent(SplitArguments& split);
    void checkForBuiltInFlags(const SplitArguments& split) const;
    void checkForLeftovers(const SplitArguments& split) const;

    Tree commandTree_;
    const Tree* currentNode_;
    std::vector<DecodedArguments> decodedArguments_;
};

} // namespace argumentparser
