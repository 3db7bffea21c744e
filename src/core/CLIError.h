// The tool's own error type.
#pragma once

#include <exception>
#include <string>

namespace orvane {

/// A failure that ends the process with status 1; its text is what the user reads.
class CLIError : public std::exception {
public:
    /// The exchange with the application failed in a way of its own.
    static CLIError communicationFailed(const std::string& message);
    static CLIError httpError(int code, const std::string& message);
    /// Something given is unacceptable, found out while the command runs.
    static CLIError invalidInput(const std::string& message);
    static CLIError appNotRunning();
    static CLIError requestTimedOut();
    static CLIError connectionInterrupted();

    const char* what() const noexcept override { return description_.c_str(); }

private:
    explicit CLIError(std::string description) : description_(std::move(description)) {}
    std::string description_;
};

} // namespace orvane
