// Everything by which parsing a command line can end without a command to run.
#pragma once

#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "ArgumentParser/ArgumentHelp.h"
#include "ArgumentParser/declaration/InputKey.h"
#include "ArgumentParser/declaration/Name.h"

namespace argumentparser {

class Tree;

struct HelpRequested {
    ArgumentVisibility visibility = ArgumentVisibility::shown;
};
struct VersionRequested {};
struct DumpHelpRequested {};
struct CompletionScriptRequested {
    std::optional<std::string> shell = {}; ///< By name; nothing for the user's own.
};
/// The answer to a completion script that asked for candidates.
struct CompletionScriptCustomResponse {
    std::string text;
};
struct UnsupportedShell {
    std::optional<std::string> shell = {}; ///< Nothing when the user's own has no script.
};
struct UnknownOption {
    Name name;
};
struct InvalidOption {
    std::string text;
};
struct NonAlphanumericShortOption {
    std::string character;
};
struct MissingValueForOption {
    Name name;
};
/// The option that lacks its value was one character of a short group, which may also be a misspelt name.
struct MissingValueOrUnknownCompositeOption {
    Name shortName;
    Name compositeName;
    std::string group; ///< As it was written.
};
struct UnexpectedValueForOption {
    Name name;
    std::string value;
};
struct UnexpectedExtraValues {
    std::vector<std::string> values;
};
/// A flag on the command line: a whole text, or a character of a short group such as "-abc".
struct FlagLocation {
    std::string text;
    std::optional<std::size_t> subIndex = {};
};
struct DuplicateExclusiveValues {
    FlagLocation previous;
    FlagLocation duplicate;
};
struct NoValue {
    InputKey key;
};
struct UnableToParseValue {
    std::optional<Name> name;
    std::string value;
    InputKey key;
    std::exception_ptr originalError; ///< What a transform threw; empty for none.
};
/// Thrown by a command's or option group's `validate`.
struct UserValidationError {
    std::exception_ptr error;
};
/// Any failure while nothing was given at all.
struct NoArguments {
    std::exception_ptr error; ///< A ParserError.
};
struct NotParentCommand {
    std::string commandName;
};
struct InvalidState {};

using ParserError =
    std::variant<HelpRequested, VersionRequested, DumpHelpRequested, CompletionScriptRequested,
                 CompletionScriptCustomResponse, UnsupportedShell, UnknownOption, InvalidOption,
                 NonAlphanumericShortOption, MissingValueForOption, MissingValueOrUnknownCompositeOption,
                 UnexpectedValueForOption, UnexpectedExtraValues, DuplicateExclusiveValues, NoValue, UnableToParseValue,
                 UserValidationError, NoArguments, NotParentCommand, InvalidState>;

/// A parser error with the command that was selected when it arose.
struct CommandError {
    const Tree* node; ///< Of the parser's tree.
    ParserError parserError;
};

} // namespace argumentparser
