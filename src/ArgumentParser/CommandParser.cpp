#include "ArgumentParser/CommandParser.h"

#include <algorithm>

#include "ArgumentParser/CommandExit.h"
#include "ArgumentParser/HelpCommand.h"
#include "ArgumentParser/HelpNames.h"
#include "ArgumentParser/LenientParser.h"

namespace argumentparser {

namespace {

/// `error` as a parser error: itself, or what a hook threw.
ParserError asParserError(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const ParserError& parserError) {
        return parserError;
    } catch (...) {
        return UserValidationError{error};
    }
}

/// Whether `error` is a failure, and not one of the ways to end well or with a status of one's own choice.
bool isFailure(const ParserError& error) {
    if (std::holds_alternative<HelpRequested>(error) || std::holds_alternative<VersionRequested>(error)) {
        return false;
    }
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

CommandParser::CommandParser(const CommandType& root) : commandTree_(root), currentNode_(&commandTree_) {}

const ParsableCommand& CommandParser::parse(std::span<const std::string> arguments) {
    try {
        SplitArguments split(arguments);
        descend(split);
        checkForBuiltInFlags(split);
        checkForLeftovers(split);
    } catch (...) {
        ParserError error = asParserError(std::current_exception());
        if (arguments.empty() && isFailure(error)) {
            error = NoArguments{std::make_exception_ptr(error)};
        }
        throw CommandError{currentNode_->commandStack(), std::move(error), {arguments.begin(), arguments.end()}};
    }
    ParsableCommand& command = *decodedArguments_.back().value;
    if (currentNode_->element() == CommandType::of<HelpCommand>()) {
        static_cast<HelpCommand&>(command).resolve(commandTree_);
    }
    return command;
}

void CommandParser::descend(SplitArguments& split) {
    while (true) {
        parseCurrent(split);
        if (!split.isEmpty() && split.front().text() != nullptr) {
            if (const Tree* child = currentNode_->child(*split.front().text())) {
                split.remove(split.front().index);
                currentNode_ = child;
                continue;
            }
        }
        if (split.elements().size() == 1) {
            checkForBuiltInFlags(split);
        }
        const auto& defaultSubcommand = currentNode_->configuration().defaultSubcommand;
        if (!defaultSubcommand) {
            return;
        }
        const Tree* child = currentNode_->child(*defaultSubcommand);
        if (child == nullptr) {
            throw ParserError(InvalidState());
        }
        currentNode_ = child;
    }
}

void CommandParser::parseCurrent(SplitArguments& split) {
    std::unique_ptr<ParsableCommand> command = currentNode_->element().construct();
    const ArgumentSet arguments = command->argumentSet();
    ParsedValues values = parseLeniently(arguments, split, *currentNode_);
    SplitArguments left = split;
    left.remove(values.allOrigins());
    if (capturesUnrecognized(arguments)) {
        checkForBuiltInFlags(left);
        captureUnrecognized(arguments, left, values);
        left.remove(values.allOrigins());
    }
    try {
        ArgumentDecoder decoder(values, decodedArguments_);
        command->decode(decoder, {});
        split.remove(decoder.usedOrigins());
        decodedArguments_.push_back({currentNode_->element(), std::move(command)});
        decodedArguments_.back().value->validate();
    } catch (...) {
        // A request for help is answered even where the rest of the line is wrong.
        checkForBuiltInFlags(left);
        throw;
    }
}

void CommandParser::checkForBuiltInFlags(const SplitArguments& split) const {
    const std::vector<CommandType> stack = currentNode_->commandStack();
    const auto isGiven = [&](const std::vector<Name>& names) {
        return std::any_of(split.elements().begin(), split.elements().end(), [&](const auto& element) {
            const ParsedArgument* option = element.option();
            return option != nullptr && std::find(names.begin(), names.end(), option->name) != names.end();
        });
    };
    for (const auto visibility : {ArgumentVisibility::shown, ArgumentVisibility::hidden}) {
        if (isGiven(getHelpNames(stack, visibility))) {
            throw ParserError(HelpRequested{visibility});
        }
    }
    if (!versionOf(stack).empty() && isGiven({versionFlagName})) {
        throw ParserError(VersionRequested());
    }
}

void CommandParser::checkForLeftovers(const SplitArguments& split) const {
    UnexpectedExtraValues extra;
    for (const SplitArguments::Element& element : split.elements()) {
        if (const ParsedArgument* option = element.option()) {
            throw ParserError(UnknownOption{InputOrigin(element.index), option->name});
        }
        if (const std::string_view* text = element.text()) {
            extra.values.emplace_back(InputOrigin(element.index), *text);
        }
    }
    if (!extra.values.empty()) {
        throw ParserError(std::move(extra));
    }
}

} // namespace argumentparser
