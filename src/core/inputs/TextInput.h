// Texts that a command takes from the command line, a file or a pipe.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/CommandModel.h"

namespace orvane {

/// The whole text of a file. A leading "~" or "~user" is expanded. Throws CLIError when there is no such file, it can't
/// be read, or it is not valid UTF-8.
std::string readWholeTextFile(const FilePath& path);

/// The same without one final line feed; a final CR LF stays.
std::string readTextFile(const FilePath& path);

/// All of standard input, unchanged, valid or not. Nothing when it is a terminal (which is not waited for) or empty.
std::optional<std::string> readPipedBytes();

/// The same, but nothing when it is not valid UTF-8.
std::optional<std::string> readPipedText();

/// The text of a report: the argument, or what is piped where there is none, unchanged. Throws ValidationError with
/// `message` when there is no text but white space.
std::string requireReport(const std::optional<std::string>& argument, std::string_view message);

/// A text that is given as itself or as a file's; a command sees to it that just one of the two is.
struct TextOrFile {
    const Option<std::optional<std::string>>& text;
    const Option<std::optional<FilePath>>& file;

    /// Throws CLIError as `readTextFile` does.
    std::string read() const;
};

} // namespace orvane
