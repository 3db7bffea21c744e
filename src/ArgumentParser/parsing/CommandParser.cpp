#include "ArgumentParser/parsing/CommandParser.h"

#include <algorithm>
#include <new>

#include "ArgumentParser/CommandExit.h"
#include "ArgumentParser/declaration/BuiltInFlags.h"
#include "ArgumentParser/parsing/KnownArgumentsParser.h"

namespace argumentparser {

namespace {

/// Whether `error` is a failure, and not a hook's way to end well or with a status of its own choice.
bool isFailure(const ParserError& error) {
    const auto* hookError = std::get_if<UserValidationError>(&error);
    if (hookError == nullptr) {
        return true;
    }
    try {
        std::rethrow_exception(hookError->error);
    } catch (const CleanExit&) {
        return false;
    } catch (const ExitCode&) {
        return false;
    } catch (...) {
        return true;
    }
}

} // namespace

ParsedCommandLine CommandParser::parse(std::span<const std::string_view> arguments) {
    try {
        SplitArguments split(arguments);
        std::optional<ParserError> request = descend(split);
        if (!request) {
            request = builtInRequest(split);
        }
        if (request) {
            return CommandError{currentNode_, *std::move(request)};
        }
        checkForLeftovers(split);
    } catch (const ParserError& error) {
        if (arguments.empty() && isFailure(error)) {
            return CommandError{currentNode_, NoArguments{std::make_exception_ptr(error)}};
        }
        return CommandError{currentNode_, error};
    }
    return &decodedCommands_.last();
}

std::optional<ParserError> CommandParser::descend(SplitArguments& split) {
    while (true) {
        if (auto request = parseCurrent(split)) {
            return request;
        }
        const SplitArguments::Element* next = split.firstUnused();
        if (next != nullptr && next->text() != nullptr) {
            if (const Tree* child = currentNode_->child(*next->text())) {
                split.markUsed(next->index);
                currentNode_ = child;
                continue;
            }
        }
        if (split.unusedCount() == 1) {
            if (auto request = builtInRequest(split)) {
                return request;
            }
        }
        const auto& defaultSubcommand = currentNode_->configuration().defaultSubcommand;
        if (!defaultSubcommand) {
            return std::nullopt;
        }
        const Tree* child = currentNode_->child(*defaultSubcommand);
        if (child == nullptr) {
            throw ParserError(InvalidState());
        }
        currentNode_ = child;
    }
}

std::optional<ParserError> CommandParser::parseCurrent(SplitArguments& split) {
    std::unique_ptr<ParsableCommand> command = currentNode_->element().construct();
    const ArgumentSet arguments = command->argumentSet();
    parseKnownArguments(arguments, split, *currentNode_);
    if (const auto* list = arguments.findPositional(ParsingStrategy::allUnrecognized)) {
        if (auto request = builtInRequest(split)) {
            return request;
        }
        captureUnrecognized(*list, split);
    }
    try {
        decode(*command);
    } catch (const ParserError&) {
        // A request for help is answered even where the rest of the line is wrong.
        if (auto request = builtInRequest(split)) {
            return request;
        }
        throw;
    }
    decodedCommands_.add(currentNode_->element(), std::move(command));
    return std::nullopt;
}

void CommandParser::decode(ParsableCommand& command) {
    try {
        command.decode(decodedCommands_, {});
        command.validate();
    } catch (const ParserError&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
        throw ParserError(UserValidationError{std::current_exception()});
    }
}

std::optional<ParserError> CommandParser::builtInRequest(const SplitArguments& split) const {
    const auto isGiven = [&](const auto& isWanted) {
        return std::any_of(split.elements().begin(), split.elements().end(), [&](const auto& element) {
            const ParsedArgument* option = element.option();
            return !element.isUsed && option != nullptr && isWanted(option->name);
        });
    };
    if (!isGiven([](const Name&) { return true; })) {
        return std::nullopt;
    }
    for (const auto visibility : {ArgumentVisibility::shown, ArgumentVisibility::hidden}) {
        const std::vector<Name> names = helpFlagNames(*currentNode_, visibility);
        if (isGiven([&](const Name& name) { return std::find(names.begin(), names.end(), name) != names.end(); })) {
            return HelpRequested{visibility};
        }
    }
    if (isGiven(isDumpHelpFlagName)) {
        return DumpHelpRequested();
    }
    if (isGiven(isVersionFlagName) && !versionOf(*currentNode_).empty()) {
        return VersionRequested();
    }
    return std::nullopt;
}

void CommandParser::checkForLeftovers(const SplitArguments& split) const {
    UnexpectedExtraValues extra;
    for (const SplitArguments::Element& element : split.elements()) {
        if (element.isUsed) {
            continue;
        }
        if (const ParsedArgument* option = element.option()) {
            throw ParserError(UnknownOption{option->name});
        }
        if (const std::string_view* text = element.text()) {
            extra.values.emplace_back(*text);
        }
    }
    if (!extra.values.empty()) {
        throw ParserError(std::move(extra));
    }
}

} // namespace argumentparser
