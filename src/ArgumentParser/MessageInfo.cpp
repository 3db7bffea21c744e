#include "ArgumentParser/MessageInfo.h"

#include "ArgumentParser/CommandExit.h"
#include "ArgumentParser/ErrorMessageGenerator.h"
#include "ArgumentParser/HelpGenerator.h"
#include "ArgumentParser/HelpNames.h"
#include "ArgumentParser/UsageGenerator.h"

namespace argumentparser {

namespace {

std::string helpScreen(const std::vector<CommandType>& stack, ArgumentVisibility visibility) {
    return HelpGenerator(stack, visibility).rendered();
}

std::string usageBlock(const std::vector<CommandType>& stack) {
    const std::unique_ptr<ParsableCommand> command = stack.back().construct();
    std::string block = usageMessage(stack, command->argumentSet());
    if (const auto helpName = primaryHelpName(stack)) {
        block += block.empty() ? "" : "\n";
        block += "  See '" + commandNames(stack) + " " + helpName->synopsis() + "' for more information.";
    }
    return block;
}

MessageInfo messageOf(const CleanExit& exit, const std::vector<CommandType>& stack, const Tree& root) {
    if (const auto* message = std::get_if<CleanExit::Message>(&exit.reason)) {
        return {MessageInfo::Help{message->text}};
    }
    const auto& command = std::get<CleanExit::HelpRequest>(exit.reason).command;
    if (!command) {
        return {MessageInfo::Help{helpScreen(stack, ArgumentVisibility::shown)}};
    }
    const Tree* node = root.find(*command);
    return {MessageInfo::Help{
        helpScreen(node != nullptr ? node->commandStack() : std::vector{*command}, ArgumentVisibility::shown)}};
}

/// For what a command's hook threw, while `stack` was selected.
MessageInfo messageOfHookError(const std::exception_ptr& error, const std::vector<CommandType>& stack,
                               const Tree& root) {
    try {
        std::rethrow_exception(error);
    } catch (const ValidationError& validation) {
        return {MessageInfo::Validation{validation.message, usageBlock(stack), {}}};
    } catch (const CleanExit& exit) {
        return messageOf(exit, stack, root);
    } catch (const ExitCode& code) {
        return {MessageInfo::Other{{}, code.rawValue}};
    } catch (const CommandFailure& failure) {
        return {MessageInfo::Other{failure.message, ExitCode::failure}};
    } catch (const std::exception& exception) {
        return {MessageInfo::Other{exception.what(), ExitCode::failure}};
    } catch (...) {
        return {MessageInfo::Other{"Unknown error.", ExitCode::failure}};
    }
}

MessageInfo messageOf(const CommandError& error, const Tree& root) {
    const std::vector<CommandType>& stack = error.commandStack;
    if (const auto* help = std::get_if<HelpRequested>(&error.parserError)) {
        return {MessageInfo::Help{helpScreen(stack, help->visibility)}};
    }
    if (std::holds_alternative<VersionRequested>(error.parserError)) {
        const std::string_view version = versionOf(stack);
        return {MessageInfo::Help{version.empty() ? "Unspecified version" : std::string(version)}};
    }
    if (const auto* hookError = std::get_if<UserValidationError>(&error.parserError)) {
        return messageOfHookError(hookError->error, stack, root);
    }
    if (std::holds_alternative<NoArguments>(error.parserError)) {
        return {MessageInfo::Validation{
            errorMessage(error), "\n" + helpScreen(root.commandStack(), ArgumentVisibility::shown), {}}};
    }
    return {MessageInfo::Validation{errorMessage(error), usageBlock(stack), errorHelpLine(error)}};
}

} // namespace

MessageInfo MessageInfo::of(const std::exception_ptr& error, const Tree& root) {
    try {
        std::rethrow_exception(error);
    } catch (const CommandError& commandError) {
        return messageOf(commandError, root);
    } catch (const ParserError& parserError) {
        return messageOf(CommandError{root.commandStack(), parserError, {}}, root);
    } catch (...) {
        return messageOfHookError(error, root.commandStack(), root);
    }
}

std::string MessageInfo::fullText() const {
    if (const auto* help = std::get_if<Help>(&value)) {
        return help->text;
    }
    if (const auto* validation = std::get_if<Validation>(&value)) {
        std::string text;
        if (!validation->help.empty()) {
            text += "Help:  " + validation->help + "\n";
        }
        if (!validation->message.empty()) {
            text += "Error: " + validation->message + "\n";
        }
        return text + validation->usage;
    }
    const std::string& message = std::get<Other>(value).message;
    return message.empty() ? message : "Error: " + message;
}

int MessageInfo::exitCode() const {
    if (const auto* other = std::get_if<Other>(&value)) {
        return other->exitCode;
    }
    return isForStandardOutput() ? ExitCode::success : ExitCode::validationFailure;
}

} // namespace argumentparser
