// Texts that a command takes from a file, a pipe or a person.
#pragma once

#include <optional>
#include <string>

namespace orvane {

/// The whole text of a file. A leading "~" or "~user" is expanded. Throws CLIError when there is no such file, it can't
/// be read, or it is not valid UTF-8.
std::string readWholeTextFile(const std::string& path);

/// The same without one final line feed; a final CR LF stays.
std::string readTextFile(const std::string& path);

/// All of standard input, unchanged. Nothing when it is a terminal (which is not waited for), empty, or not valid
/// UTF-8.
std::optional<std::string> readPipedText();

/// Shows `message` and asks at the terminal whether to go on; returns on "y" or "yes". Throws CLIError on any other
/// answer, and without a terminal on standard input before anything is shown.
void confirmDeletion(const std::string& message);

} // namespace orvane
