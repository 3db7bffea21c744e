// Starts the real binary with chosen streams and environment, and tells what came of it.
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace testsupport {

/// Where the tool's standard input comes from.
struct Input {
    enum class Kind { null, pipe, terminal, closed } kind = Kind::null;
    std::string text{};

    /// A pipe that holds `text` and ends behind it.
    static Input pipe(std::string text) { return {Kind::pipe, std::move(text)}; }
    /// A terminal at which `text` and then the end of input (^D) are typed, without echo.
    static Input terminal(std::string text) { return {Kind::terminal, std::move(text)}; }
    static Input closed() { return {Kind::closed}; }
};

/// Where one of the tool's output streams leads. What a pipe or a terminal gets is returned unchanged.
struct Output {
    enum class Kind { pipe, terminal, file, brokenPipe, closed } kind = Kind::pipe;
    std::string path{};
    unsigned short columns = 0;

    /// `columns` is the width the terminal reports; 0 for one that does not know.
    static Output terminal(unsigned short columns = 80) { return {Kind::terminal, {}, columns}; }
    /// An existing file, opened for writing, such as "/dev/full".
    static Output file(std::string path) { return {Kind::file, std::move(path)}; }
    /// A pipe whose reader has gone.
    static Output brokenPipe() { return {Kind::brokenPipe}; }
    static Output closed() { return {Kind::closed}; }
};

/// Whether the tool is the one of another architecture, which an emulator runs.
bool toolIsEmulated();

/// The tool that is tested: the one built with the tests, or what ORVANE_EMULATED_CLI names in their environment.
const std::string& toolBinary();

/// How the tool is started, arguments aside. By default: an empty input, two pipes, and an environment of
/// PATH=/usr/bin:/bin, HOME=/nonexistent-home, TZ=UTC, COLUMNS=80 and LANG=C.UTF-8 alone.
struct ToolSetting {
    Input input{};
    Output out{};
    Output err{};
    std::map<std::string, std::optional<std::string>> environment{}; ///< Variables to set; nothing removes one.
    std::string directory{};                                         ///< Working directory; empty leaves it.
    bool waits = true; ///< Whether a read or a write of the tool waits; otherwise it fails until something can be done.
    std::string binary = toolBinary();
    std::chrono::seconds limit{20}; ///< A run that takes longer is killed and fails the test.
};

/// What a run left. `status` is the exit status and -1 when a signal ended the run; `signal` is that signal, else 0.
/// `pageFaults` counts the pages that it touched for the first time.
struct ToolResult {
    std::string out;
    std::string err;
    int status = -1;
    int signal = 0;
    long pageFaults = 0;
};

/// Runs the tool with exactly `arguments`. Throws std::system_error when it cannot be started.
ToolResult runTool(const std::vector<std::string>& arguments, const ToolSetting& setting = {});

} // namespace testsupport
