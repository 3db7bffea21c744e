#include "core/CLIError.h"

namespace orvane {

CLIError CLIError::communicationFailed(const std::string& message) {
    return CLIError("Could not communicate with Orvane: " + message);
}

CLIError CLIError::httpError(int code, const std::string& message) {
    return CLIError("HTTP " + std::to_string(code) + ": " + message);
}

CLIError CLIError::invalidInput(const std::string& message) {
    return CLIError(message);
}

CLIError CLIError::appNotRunning() {
    return CLIError("Orvane is not running. Please open the Orvane app first.");
}

CLIError CLIError::requestTimedOut() {
    return CLIError("Orvane did not respond before the request timed out. It may be busy; please try again.");
}

CLIError CLIError::connectionInterrupted() {
    return CLIError("The connection to Orvane was interrupted. Please try again.");
}

} // namespace orvane
