#include "ArgumentParser/RunCommandLine.h"

#include <string>
#include <vector>

#include "ArgumentParser/CommandExit.h"
#include "ArgumentParser/CommandParser.h"
#include "ArgumentParser/MessageInfo.h"
#include "platform/Streams.h"
#include "platform/TerminalText.h"
#include "platform/Text.h"

namespace argumentparser {

namespace {

/// Prints what belongs to an error that ended the run, and gives the status it ends with.
int reportError(const std::exception_ptr& error, const Tree& root) {
    const MessageInfo info = MessageInfo::of(error, root);
    const std::string text = info.fullText();
    if (text.empty()) {
        return info.exitCode();
    }
    if (!info.isForStandardOutput()) {
        const bool isSeen = platform::isTerminal(platform::Stream::error);
        platform::writeStandardError((isSeen ? platform::terminalText(text) : text) + "\n");
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

int runCommandLine(const CommandType& root, int argumentCount, const char* const* arguments) {
    std::vector<std::string> texts;
    for (int i = 1; i < argumentCount; ++i) {
        const std::string_view argument = arguments[i];
        texts.push_back(platform::isValidUtf8(argument) ? std::string(argument) : platform::repairedUtf8(argument));
    }
    CommandParser parser(root);
    try {
        parser.parse(texts).run();
        return ExitCode::success;
    } catch (...) {
        return reportError(std::current_exception(), parser.commandTree());
    }
}

} // namespace argumentparser
