#include "core/inputs/TextInput.h"

#include "core/service/CLIError.h"
#include "platform/files/Files.h"
#include "platform/files/Streams.h"
#include "platform/text/Text.h"

namespace orvane {

std::string readWholeTextFile(const FilePath& path) {
    const std::string expanded = platform::expandTilde(path.bytes);
    if (!platform::fileExists(expanded)) {
        throw CLIError::invalidInput("File not found: " + path.bytes);
    }
    std::optional<std::string> text = platform::readFile(expanded);
    if (!text || !platform::isValidUtf8(*text)) {
        throw CLIError::invalidInput("Could not read file: " + path.bytes);
    }
    return *std::move(text);
}

std::string readTextFile(const FilePath& path) {
    std::string text = readWholeTextFile(path);
    if (text.ends_with('\n') && !text.ends_with("\r\n")) {
        text.pop_back();
    }
    return text;
}

std::optional<std::string> readPipedBytes() {
    if (platform::isTerminal(platform::Stream::input)) {
        return std::nullopt;
    }
    std::string bytes = platform::readStandardInput();
    return bytes.empty() ? std::nullopt : std::optional(std::move(bytes));
}

std::optional<std::string> readPipedText() {
    std::optional<std::string> bytes = readPipedBytes();
    return bytes && platform::isValidUtf8(*bytes) ? std::move(bytes) : std::nullopt;
}

std::string requireReport(const std::optional<std::string>& argument, std::string_view message) {
    std::optional<std::string> report = argument ? argument : readPipedText();
    if (!report || platform::trimmed(*report).empty()) {
        throw ValidationError{std::string(message)};
    }
    return *std::move(report);
}

std::string TextOrFile::read() const {
    return file ? readTextFile(*file) : *text;
}

} // namespace orvane
