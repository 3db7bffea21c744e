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

const ParsableCommand& CommandParser::parse(std::span<const std::string_view> arguments) {
    try {
        SplitArguments split(arguments);
        descend(split);
        checkForBuiltInFlags(split);
        checkForLeftovers(split);
    } catch (const ParserError& error) {
        if (arguments.empty() && isFailure(error)) {
            throw CommandError{currentNode_, NoArguments{std::make_exception_ptr(error)}};
        }
        throw CommandError{currentNode_, error};
    }
    return decodedCommands_.last();
}

void CommandParser::descend(SplitArguments& split) {
    while (true) {
        parseCurrent(split);
        const SplitArguments::Element* next = split.firstUnused();
        if (next != nullptr && next->text() != nullptr) {
            if (const Tree* child = currentNode_->child(*next->text())) {
                split.markUsed(next->index);
                currentNode_ = child;
                continue;
            }
        }
        if (split.unusedCount() == 1) {
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
    parseKnownArguments(arguments, split, *currentNode_);
    if (const auto* list = arguments.findPositional(ParsingStrategy::allUnrecognized)) {
        checkForBuiltInFlags(split);
        captureUnrecognized(*list, split);
    }
    try {
        decode(*command);
    } catch (const ParserError&) {
        // A request for help is answered even where the rest of the line is wrong.
        checkForBuiltInFlags(split);
        throw;
    }
    decodedCommands_.add(currentNode_->element(), std::move(command));
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

void CommandParser::checkForBuiltInFlags(const SplitArguments& split) const {
    const auto isGiven = [&](const auto& isWanted) {
        return std::any_of(split.elements().begin(), split.elements().end(), [&](const auto& element) {
            const ParsedArgument* option = element.option();
            return !element.isUsed && option != nullptr && isWanted(option->name);
        });
    };
    if (!isGiven([](const Name&) { return true; })) {
        return;
    }
    for (const auto visibility : {ArgumentVisibility::shown, ArgumentVisibility::hidden}) {
        const std::vector<Name> names = helpFlagNames(*currentNode_, visibility);
        if (isGiven([&](const Name& name) { return std::find(names.begin(), names.end(), name) != names.end(); })) {
            throw CommandError{currentNode_, HelpRequested{visibility}};
        }
    }
    if (isGiven(isDumpHelpFlagName)) {
        throw CommandError{currentNode_, DumpHelpRequested()};
    }
    if (isGiven(isVersionFlagName) && !versionOf(*currentNode_).empty()) {
        throw CommandError{currentNode_, VersionRequested()};
    }
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
