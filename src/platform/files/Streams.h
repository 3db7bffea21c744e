// The process's standard streams, written without buffering and without loss.
#pragma once

#include <initializer_list>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace platform {

/// A write to standard output failed; `what` says why in the system's words.
class OutputError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Writes all `pieces`, in order and in one system call where the system takes it, to standard output.
/// Throws OutputError. A closed pipe ends the process by its signal.
void writeStandardOutput(std::span<const std::string_view> pieces);
void writeStandardOutput(std::initializer_list<std::string_view> pieces);
void writeStandardOutput(std::string_view text);

/// The same for standard error. A failure is ignored: there is nowhere left to report it.
void writeStandardError(std::string_view text);

enum class Stream { input = 0, output = 1, error = 2 };

bool isTerminal(Stream stream);

/// The width, in columns, of the terminal on standard output; 0 when there is none or it does not know.
int terminalWidth();

/// All bytes of standard input up to its end. Throws std::system_error.
std::string readStandardInput();

/// One line of standard input without its line feed; what is there when the input ends first, and an empty text at
/// its end. Throws std::system_error.
std::string readStandardInputLine();

/// Opens the standard streams that are closed, so that no file or socket opened later can take their place: reading
/// fails, for what nobody gave is no empty text, and writing fails. To be called once, before anything is opened.
void reserveStandardStreams();

} // namespace platform
