// The command tree, read from the configurations of its commands as far as it is asked for.
#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

/// A node: a command and its configuration. Its children are, in order of display, its subcommands and, of a root that
/// has any, the built-in one. Each is read when a search comes to it, so that a search is the place where a faulty
/// declaration is found: a command that is its own subcommand or has its own name as an alias ends the process.
class Tree {
public:
    /// `builtIn` is the subcommand that the framework adds to a tool that has any.
    explicit Tree(const CommandType& root, const std::optional<CommandType>& builtIn = std::nullopt)
        : Tree(root, builtIn, nullptr) {}
    Tree(const Tree&) = delete;
    Tree& operator=(const Tree&) = delete;

    const CommandType& element() const { return element_; }
    const CommandConfiguration& configuration() const { return configuration_; }
    std::string_view commandName() const { return commandName_; }
    /// Nothing for the root.
    const Tree* parent() const { return parent_; }

    /// The child that `word` selects, by name before aliases; nothing when there is none.
    const Tree* child(std::string_view word) const;
    const Tree* child(const CommandType& type) const;
    /// All of them, in order of display.
    std::vector<const Tree*> children() const;
    /// The node of `type` here or below; nothing when there is none.
    const Tree* find(const CommandType& type) const;
    /// The nodes from the root to this one.
    std::vector<const Tree*> path() const;

private:
    Tree(const CommandType& element, const std::optional<CommandType>& builtIn, const Tree* parent);

    /// The first child for which `search` finds something: that, or nothing.
    template <class Search>
    const Tree* findAmongChildren(Search search) const;
    void listSubcommands() const;

    CommandType element_;
    std::optional<CommandType> builtIn_;
    CommandConfiguration configuration_;
    std::string_view commandName_;
    const Tree* parent_;
    mutable std::optional<std::vector<CommandType>> subcommands_; ///< All of them, once a child was asked for.
    mutable std::vector<std::unique_ptr<Tree>> children_;         ///< Those read so far.
};

} // namespace argumentparser
