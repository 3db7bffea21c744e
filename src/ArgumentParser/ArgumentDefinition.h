// The unit that parsing, errors and help work on: one thing that a command accepts on its command line.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ArgumentParser/ArgumentHelp.h"
#include "ArgumentParser/CompletionKind.h"
#include "ArgumentParser/Name.h"
#include "ArgumentParser/ParsedValues.h"

namespace argumentparser {

/// How an input consumes the command line.
enum class ParsingStrategy {
    nextValue,         ///< The next element, which must not be an option. The default.
    scanningForValue,  ///< The next value anywhere behind the name. The default of a repeatable option.
    unconditional,     ///< The next element whatever it looks like.
    upToNextOption,    ///< Every value up to the next option, at least one.
    allRemainingInput, ///< Everything that remains, options included.
    postTerminator,    ///< A positional list of what stands behind "--".
    allUnrecognized,   ///< A positional list of what nothing else claimed.
};

struct ArgumentDefinition {
    struct Named {
        std::vector<Name> names;
    };
    struct Positional {};
    /// Carries a default and has no form on the command line.
    struct DefaultOnly {};

    /// Record one occurrence in the values gathered so far: where it stood, the name used (none for a positional), and
    /// the value's text. They throw ParserError.
    using NullaryUpdate = std::function<void(const InputOrigin&, const Name&, ParsedValues&)>;
    using UnaryUpdate = std::function<void(const InputOrigin&, const Name*, std::string_view, ParsedValues&)>;

    struct Help {
        bool isOptional = false;
        bool isRepeating = false;
        bool isComposite = false; ///< One of the flags that together stand for one input.
        std::string defaultValue; ///< For display; empty for none.
        std::vector<InputKey> keys;
        std::vector<std::string_view> allValueStrings; ///< The closed set of values; empty when open.
        std::string_view abstract;
        ArgumentDiscussion discussion;
        std::string_view valueName; ///< As declared; empty for none.
        ArgumentVisibility visibility = ArgumentVisibility::shown;
        std::string_view parentTitle; ///< The title of the option group around it; empty for none.
    };

    std::variant<Named, Positional, DefaultOnly> kind;
    Help help;
    CompletionKind completion;
    ParsingStrategy parsingStrategy = ParsingStrategy::nextValue;
    std::variant<NullaryUpdate, UnaryUpdate> update;
    std::function<void(ParsedValues&)> initial; ///< Records the declared default; may be empty.

    bool isPositional() const { return std::holds_alternative<Positional>(kind); }
    bool isRepeatingPositional() const { return isPositional() && help.isRepeating; }
    bool takesValue() const { return std::holds_alternative<UnaryUpdate>(update); }
    bool isVisible() const { return help.visibility == ArgumentVisibility::shown; }

    const std::vector<Name>& names() const;
    /// The first name that isn't short, else the first; nothing without names.
    const Name* preferredName() const;
    /// What stands for the value in help and errors.
    std::string valueName() const;
    /// The form in a usage line: "[--limit <limit>]", "<query>", "<files> ...".
    std::string synopsis() const;
    std::string synopsisWithoutBrackets() const;
};

/// The definitions of one command in order of declaration. It must not outlive the inputs it was built from.
class ArgumentSet {
public:
    void append(ArgumentDefinition definition);

    const std::vector<ArgumentDefinition>& content() const { return content_; }
    /// The first definition that bears `name`; nothing when none does.
    const ArgumentDefinition* find(const Name& name) const;
    /// Whether a positional list here takes everything from the first value on.
    bool capturesForPassthrough() const;

private:
    std::vector<ArgumentDefinition> content_;
    std::vector<std::pair<Name, std::size_t>> namePositions_;
};

} // namespace argumentparser
