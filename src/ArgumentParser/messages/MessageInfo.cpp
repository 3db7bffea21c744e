#include "ArgumentParser/messages/MessageInfo.h"

#include <new>

#include "ArgumentParser/CommandExit.h"
#include "ArgumentParser/completions/CompletionsGenerator.h"
#include "ArgumentParser/declaration/BuiltInFlags.h"
#include "ArgumentParser/description/ToolInfo.h"
#include "ArgumentParser/help/HelpCommand.h"
#include "ArgumentParser/help/HelpGenerator.h"
#include "ArgumentParser/help/UsageGenerator.h"
#include "ArgumentParser/messages/ErrorMessageGenerator.h"

namespace argumentparser {

namespace {

MessageInfo helpScreen(const Tree& node, ArgumentVisibility visibility = ArgumentVisibility::shown) {
    return {MessageInfo::Help{HelpGenerator(node, visibility).rendered()}};
}

MessageInfo toolDescription(const Tree& node) {
    return {MessageInfo::Help{encoded(toolInfo(node))}};
}

/// What `show` makes of the node of `command`, or of the current one when no command is named.
template <class Show>
MessageInfo shown(const std::optional<CommandType>& command, const Tree& selected, const Tree& root, Show show) {
    if (!command) {
        return show(selected);
    }
    const Tree* node = root.find(*command);
    return node != nullptr ? show(*node) : show(Tree(*command, CommandType::of<HelpCommand>()));
}

std::string usageBlock(const Tree& node, const ArgumentSet& arguments) {
    std::string block = usageMessage(node, arguments);
    if (const auto helpName = primaryHelpFlagName(node)) {
        block += block.empty() ? "" : "\n";
        block += "  See '" + commandNames(node) + " " + helpName->synopsis() + "' for more information.";
    }
    return block;
}

MessageInfo scriptMessage(const CompletionScriptRequested& request, const Tree& root) {
    const auto shell = request.shell ? completionShell(*request.shell) : autodetectedCompletionShell();
    if (!shell) {
        return MessageInfo::of(CommandError{&root, UnsupportedShell{request.shell}}, root);
    }
    return {MessageInfo::Help{completionScript(root, *shell)}};
}

MessageInfo messageOf(const CleanExit& exit, const Tree& selected, const Tree& root) {
    if (const auto* message = std::get_if<CleanExit::Message>(&exit.reason)) {
        return {MessageInfo::Help{message->text}};
    }
    if (const auto* dump = std::get_if<CleanExit::DumpRequest>(&exit.reason)) {
        return shown(dump->command, selected, root, toolDescription);
    }
    const auto& command = std::get<CleanExit::HelpRequest>(exit.reason).command;
    return shown(command, selected, root, [](const Tree& node) { return helpScreen(node); });
}

/// For whatever was thrown, by the command at `selected` or on the way to it.
MessageInfo messageOf(const std::exception_ptr& error, const Tree& selected, const Tree& root) {
    try {
        std::rethrow_exception(error);
    } catch (const SubcommandHelpRequest& request) {
        return helpScreen(request.selected(root));
    } catch (const ValidationError& validation) {
        const std::unique_ptr<ParsableCommand> command = selected.element().construct();
        return {MessageInfo::Validation{validation.message, usageBlock(selected, command->argumentSet()), {}}};
    } catch (const CleanExit& exit) {
        return messageOf(exit, selected, root);
    } catch (const ExitCode& code) {
        return {MessageInfo::Other{{}, code.rawValue}};
    } catch (const CommandFailure& failure) {
        return {MessageInfo::Other{failure.message, ExitCode::failure}};
    } catch (const std::bad_alloc&) {
        return {MessageInfo::Other{"Out of memory.", ExitCode::failure}};
    } catch (const std::exception& exception) {
        return {MessageInfo::Other{exception.what(), ExitCode::failure}};
    } catch (...) {
        return {MessageInfo::Other{"Unknown error.", ExitCode::failure}};
    }
}

} // namespace

MessageInfo MessageInfo::of(const CommandError& error, const Tree& root) {
    if (const auto* help = std::get_if<HelpRequested>(&error.parserError)) {
        return helpScreen(*error.node, help->visibility);
    }
    if (std::holds_alternative<DumpHelpRequested>(error.parserError)) {
        return toolDescription(*error.node);
    }
    if (std::holds_alternative<VersionRequested>(error.parserError)) {
        return {Help{std::string(versionOf(*error.node))}};
    }
    if (const auto* request = std::get_if<CompletionScriptRequested>(&error.parserError)) {
        return scriptMessage(*request, root);
    }
    if (const auto* response = std::get_if<CompletionScriptCustomResponse>(&error.parserError)) {
        return {Help{response->text}};
    }
    if (const auto* hookError = std::get_if<UserValidationError>(&error.parserError)) {
        return messageOf(hookError->error, *error.node, root);
    }
    const std::unique_ptr<ParsableCommand> command = error.node->element().construct();
    const ArgumentSet arguments = command->argumentSet();
    const ErrorMessageGenerator generator(error, arguments);
    if (std::holds_alternative<NoArguments>(error.parserError)) {
        return {Validation{generator.message(), "\n" + helpScreen(root).fullText(), {}}};
    }
    return {Validation{generator.message(), usageBlock(*error.node, arguments), generator.helpLine()}};
}

MessageInfo MessageInfo::of(const std::exception_ptr& error, const Tree& root) {
    return messageOf(error, root, root);
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
