// The command tree as completion scripts need it: what may be offered, and nothing that is hidden.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ArgumentParser/CompletionKind.h"
#include "ArgumentParser/declaration/ArgumentSet.h"
#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

/// A named input or a positional.
struct CompletionInput {
    std::vector<Name> names;               ///< None for a positional.
    std::vector<std::string> alternatives; ///< All names, with dashes, of which one command line has but one.
    bool takesValue = false;               ///< A positional does.
    bool isRepeating = false;
    ParsingStrategy parsingStrategy = ParsingStrategy::nextValue;
    std::string valueName;
    std::string description; ///< One line.
    std::string identifier;  ///< By which a script asks the tool for the candidates of this input.
    CompletionKind completion;
    bool isBuiltIn = false; ///< Added by the framework: it ends a command line.
    bool isOffered = true;  ///< False for a hidden positional, which only takes its place.

    /// Whether more values than one may follow a name or, of a positional, the values before.
    bool takesSeveralValues() const;
    std::vector<std::string> synopses() const;
};

/// A command, displayed or not, with its displayed inputs.
struct CompletionCommand {
    std::vector<std::string> path;  ///< Its words, the tool's name first.
    std::vector<std::string> words; ///< Its own name and its aliases.
    std::string description;        ///< One line.
    bool isDisplayed = true;
    bool isHelp = false; ///< The built-in `help`, whose values are the words of other commands.
    std::vector<CompletionInput> options;
    std::vector<CompletionInput> positionals;
    std::vector<CompletionCommand> children;
    std::string defaultChild = {}; ///< Its name; empty for none.

    const std::string& name() const { return path.back(); }
    std::vector<const CompletionCommand*> displayedChildren() const;
    /// The names and aliases of all children.
    std::vector<std::string> childWords() const;
    /// The child that runs without its word; nothing when there is none.
    const CompletionCommand* defaultCommand() const;
};

/// The command at `node` and all below it. A command leaves to its default child the options that both have.
CompletionCommand completionCommand(const Tree& node);

/// Calls `visit` for `command` and each one below it, depth first.
template <class Visit>
void visitCommands(const CompletionCommand& command, Visit visit) {
    visit(command);
    for (const CompletionCommand& child : command.children) {
        visitCommands(child, visit);
    }
}

} // namespace argumentparser
