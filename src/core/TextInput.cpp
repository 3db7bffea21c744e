#include "core/TextInput.h"

#include "core/CLIError.h"
#include "platform/Files.h"
#include "platform/Streams.h"
#include "platform/Text.h"

namespace orvane {

std::string readWholeTextFile(const std::string& path) {
    const std::string expanded = platform::expandTilde(path);
    if (!platform::fileExists(expanded)) {
        throw CLIError::invalidInput("File not found: " + path);
    }
    std::optional<std::string> text = platform::readFile(expanded);
    if (!text || !platform::isValidUtf8(*text)) {
        throw CLIError::invalidInput("Could not read file: " + path);
    }
    return *std::move(text);
}

std::string readTextFile(const std::string& path) {
    std::string text = readWholeTextFile(path);
    if (text.ends_with('\n') && !text.ends_with("\r\n")) {
        text.pop_back();
    }
    return text;
}

std::optional<std::string> readPipedText() {
    if (platform::isTerminal(platform::Stream::input)) {
        return std::nullopt;
    }
    std::string text = platform::readStandardInput();
    if (text.empty() || !platform::isValidUtf8(text)) {
        return std::nullopt;
    }
    return text;
}

void confirmDeletion(const std::string& message) {
    if (!platform::isTerminal(platform::Stream::input)) {
        throw CLIError::invalidInput("Deletion requires interactive confirmation from a terminal.");
    }
    platform::writeStandardOutput({message, "\nContinue? [y/N] "});
    const std::string line = platform::readStandardInputLine();
    const std::string answer = platform::lowercased(platform::trimmed(line));
    if (answer != "y" && answer != "yes") {
        throw CLIError::invalidInput("Deletion cancelled.");
    }
}

} // namespace orvane
