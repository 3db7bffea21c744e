#include "ArgumentParser/RunCommandLine.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "ArgumentParser/CommandExit.h"
#include "ArgumentParser/completions/CompletionRequest.h"
#include "ArgumentParser/help/HelpCommand.h"
#include "ArgumentParser/parsing/CommandParser.h"
#include "platform/files/Streams.h"
#include "platform/text/TerminalText.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

/// Prints what belongs to an error that ended the run, and gives the status it ends with.
int report(const MessageInfo& info) {
    const std::string text = info.fullText();
    if (text.empty()) {
        return info.exitCode();
    }
    if (!info.isForStandardOutput()) {
        const std::string message = platform::isValidUtf8(text) ? text : platform::repairedUtf8(text);
        const bool isSeen = platform::isTerminal(platform::Stream::error);
        platform::writeStandardError((isSeen ? platform::terminalText(message) : message) + "\n");
        return info.exitCode();
    }
    try {
        platform::writeStandardOutput({text, "\n"});
        return info.exitCode();
    } catch (const platform::OutputError& outputError) {
        platform::writeStandardError("Error: " + std::string(outputError.what()) + "\n");
        return ExitCode::failure;
    }
}

} // namespace

std::optional<MessageInfo> run(const CommandType& root, int argumentCount, const char* const* arguments) {
    CommandParser parser(root, CommandType::of<HelpCommand>());
    const Tree& tree = parser.commandTree();
    try {
        const std::vector<std::string_view> texts(arguments + std::min(argumentCount, 1), arguments + argumentCount);
        if (const auto request = completionRequest(tree, texts)) {
            return MessageInfo::of(*request, tree);
        }
        const ParsedCommandLine parsed = parser.parse(texts);
        if (const auto* error = std::get_if<CommandError>(&parsed)) {
            return MessageInfo::of(*error, tree);
        }
        std::get<const ParsableCommand*>(parsed)->run();
        return std::nullopt;
    } catch (...) {
        return MessageInfo::of(std::current_exception(), tree);
    }
}

int runCommandLine(const CommandType& root, int argumentCount, const char* const* arguments) {
    const std::optional<MessageInfo> end = run(root, argumentCount, arguments);
    return end ? report(*end) : ExitCode::success;
}

} // namespace argumentparser
