// The command tree, built from the root's configuration.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

/// A node: a command, its configuration, and its children in order of display. A root with children has the built-in
/// `help` as a last child.
class Tree {
public:
    /// Ends the process when a command is declared as its own subcommand or has its own name as an alias.
    explicit Tree(const CommandType& root);
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    const CommandType& element() const { return element_; }
    const CommandConfiguration& configuration() const { return configuration_; }
    const std::string& commandName() const { return commandName_; }
    const std::vector<std::unique_ptr<Tree>>& children() const { return children_; }

    /// The child that `word` selects, by name before aliases; nothing when there is none.
    const Tree* child(std::string_view word) const;
    const Tree* child(const CommandType& type) const;
    /// The commands from the root to this one.
    std::vector<CommandType> commandStack() const;
    /// The node of `type` here or below; nothing when there is none.
    const Tree* find(const CommandType& type) const;

private:
    Tree(const CommandType& element, const Tree* parent);

    CommandType element_;
    CommandConfiguration configuration_;
    std::string commandName_;
    const Tree* parent_;
    std::vector<std::unique_ptr<Tree>> children_;
};

} // namespace argumentparser
