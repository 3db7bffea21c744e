// What the sample library is started with.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

namespace sample {

struct CommandLine {
    bool wantsHelp = false; ///< Then nothing else counts.
    std::string dataFile{};
    std::uint16_t port = 44360;
    bool logsToTerminal = false;
    std::optional<std::string> logFile{};
    std::chrono::milliseconds delay{};
    std::optional<unsigned> failure{};
    bool closes = false;
};

struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

extern const char* const helpText;

/// Reads the words behind the program's name. Throws UsageError.
CommandLine parseCommandLine(std::span<char*> words);

} // namespace sample
