// Everything by which parsing a command line can end without a command to run.
#pragma once

#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "ArgumentParser/ArgumentHelp.h"
#include "ArgumentParser/CommandType.h"
#include "ArgumentParser/InputOrigin.h"
#include "ArgumentParser/Name.h"
#include "ArgumentParser/ParsedValues.h"

namespace argumentparser {

struct HelpRequested {
    ArgumentVisibility visibility = ArgumentVisibility::shown;
};
struct VersionRequested {};
struct UnknownOption {
    InputOrigin origin;
    Name name;
};
struct InvalidOption {
    std::string text;
};
struct NonAlphanumericShortOption {
    std::string character;
};
struct MissingValueForOption {
    InputOrigin origin;
    Name name;
};
/// The option that lacks its value was one character of a short group, which may also be a misspelt name.
struct MissingValueOrUnknownCompositeOption {
    InputOrigin origin;
    Name shortName;
    Name compositeName;
};
struct UnexpectedValueForOption {
    InputOrigin origin;
    Name name;
    std::string value;
};
struct UnexpectedExtraValues {
    std::vector<std::pair<InputOrigin, std::string>> values;
};
struct DuplicateExclusiveValues {
    InputOrigin previous;
    InputOrigin duplicate;
};
struct NoValue {
    InputKey key;
};
struct UnableToParseValue {
    InputOrigin origin;
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
    std::exception_ptr error;
};
struct NotParentCommand {
    std::string commandName;
};
struct NotImplemented {};
struct InvalidState {};
struct MissingSubcommand {};

using ParserError =
    std::variant<HelpRequested, VersionRequested, UnknownOption, InvalidOption, NonAlphanumericShortOption,
                 MissingValueForOption, MissingValueOrUnknownCompositeOption, UnexpectedValueForOption,
                 UnexpectedExtraValues, DuplicateExclusiveValues, NoValue, UnableToParseValue, UserValidationError,
                 NoArguments, NotParentCommand, NotImplemented, InvalidState, MissingSubcommand>;

/// A parser error with the commands that were selected when it arose, root first, and the whole command line.
struct CommandError {
    std::vector<CommandType> commandStack;
    ParserError parserError;
    std::vector<std::string> originalInput;
};

} // namespace argumentparser
