#include "core/service/CLIError.h"

namespace orvane {

CLIError CLIError::communicationFailed(const std::string& message) {
    return {{"Could not communicate with Orvane: " + message}};
}

CLIError CLIError::invalidInput(const std::string& message) {
    return {{message}};
}

CLIError CLIError::appNotRunning() {
    return {{"Orvane is not running. Please open the Orvane app first."}};
}

CLIError CLIError::requestTimedOut() {
    return {{"Orvane did not respond before the request timed out. It may be busy; please try again."}};
}

CLIError CLIError::connectionInterrupted() {
    return {{"The connection to Orvane was interrupted. Please try again."}};
}

} // namespace orvane
