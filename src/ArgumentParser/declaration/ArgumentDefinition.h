// The unit that parsing, errors and help work on: one thing that a command accepts on its command line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ArgumentParser/ArgumentHelp.h"
#include "ArgumentParser/CompletionKind.h"
#include "ArgumentParser/declaration/InputKey.h"
#include "ArgumentParser/declaration/Name.h"

namespace argumentparser {

class DeclaredInput;

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
    enum class Kind {
        flag,       ///< Named, without a value.
        option,     ///< Named, with a value.
        positional, ///< A value without a name.
    };

    Kind kind = Kind::flag;
    std::vector<Name> names = {}; ///< Empty for a positional.
    InputKey key;
    ArgumentHelp help;
    std::string_view parentTitle = {}; ///< The title of the option group around it; empty for none.
    bool isOptional = false;
    bool isRepeating = false;
    bool isComposite = false; ///< One of the flags that together stand for one input.
    ParsingStrategy parsingStrategy = ParsingStrategy::nextValue;
    DeclaredInput* input = nullptr; ///< Records the occurrences; none for a flag that the framework adds.
    std::size_t member = 0;         ///< Which of a composite input's values the flag stands for.

    bool isPositional() const { return kind == Kind::positional; }
    bool isRepeatingPositional() const { return isPositional() && isRepeating; }
    bool takesValue() const { return kind != Kind::flag; }
    bool isVisible() const { return help.visibility == ArgumentVisibility::shown; }

    /// The first name that isn't short, else the first; nothing without names.
    const Name* preferredName() const;
    /// What stands for the value in help and errors.
    std::string valueName() const;
    /// The form in a usage line: "[--limit <limit>]", "<query>", "<files> ...". Empty for a flag without a name.
    std::string synopsis() const;
    std::string synopsisWithoutBrackets() const;
    /// The declared default for display; empty for none. To be asked before anything is parsed.
    std::string defaultValue() const;
    /// The closed set of values; empty when open.
    std::vector<std::string_view> allValueStrings() const;
    /// The descriptions of those values that have one.
    ValueDescriptions allValueDescriptions() const;
    /// What a shell may offer for the value.
    CompletionKind completion() const;
};

} // namespace argumentparser
