// Command lines of the tool itself, parsed and answered; no command runs but `help`. The first line of an input has
// COLUMNS and, behind a blank, the shell whose completion script asks; then come the words, separated by null bytes, or
// by line feeds if there are none.
#include <optional>
#include <vector>

#include "ArgumentParser/completions/CompletionRequest.h"
#include "ArgumentParser/help/HelpCommand.h"
#include "ArgumentParser/messages/MessageInfo.h"
#include "ArgumentParser/parsing/CommandParser.h"
#include "RootCommand.h"
#include "Target.h"
#include "platform/text/Text.h"

using namespace argumentparser;

namespace {

void setEnvironment(std::string_view setting) {
    const std::size_t columns = std::min(setting.find(' '), setting.size());
    ::setenv("COLUMNS", std::string(setting.substr(0, columns)).c_str(), 1);
    ::setenv("SAP_SHELL", std::string(setting.substr(std::min(columns + 1, setting.size()))).c_str(), 1);
}

std::optional<MessageInfo> answer(const std::vector<std::string_view>& words) {
    CommandParser parser(orvane::rootCommand(), CommandType::of<HelpCommand>());
    const Tree& tree = parser.commandTree();
    try {
        if (const auto request = completionRequest(tree, words)) {
            return MessageInfo::of(*request, tree);
        }
        const ParsedCommandLine parsed = parser.parse(words);
        if (const auto* error = std::get_if<CommandError>(&parsed)) {
            return MessageInfo::of(*error, tree);
        }
        if (const auto* help = dynamic_cast<const HelpCommand*>(std::get<const ParsableCommand*>(parsed))) {
            help->run();
        }
        return std::nullopt;
    } catch (...) {
        return MessageInfo::of(std::current_exception(), tree);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    setEnvironment(input.line());
    const std::string_view text = input.rest();
    const char separator = text.find('\0') == std::string_view::npos ? '\n' : '\0';
    const auto words = text.empty() ? std::vector<std::string_view>() : platform::split(text, separator);
    if (const std::optional<MessageInfo> end = answer(words)) {
        const std::string message = end->fullText();
        const int status = end->exitCode();
        fuzz::require(status == 0 || status == 1 || status == 64, "a run that ends early has status 0, 1 or 64");
        fuzz::require(end->isForStandardOutput() == (status == 0), "what is asked for is no failure");
        fuzz::require(status == 0 || !message.empty(), "a refusal says something");
        fuzz::require(platform::isValidUtf8(message) || !platform::isValidUtf8(text),
                      "what is said of valid UTF-8 is valid UTF-8");
    }
    return 0;
}
