#include "core/inputs/Confirmation.h"

#include "core/output/Style.h"
#include "core/service/CLIError.h"
#include "platform/files/Streams.h"
#include "platform/text/Text.h"

namespace orvane {

void confirm(const Question& question) {
    if (!platform::isTerminal(platform::Stream::input)) {
        throw CLIError::invalidInput(std::string(question.noTerminal));
    }
    platform::writeStandardOutput({shownText(question.message), "\n", question.prompt});
    const std::string line = platform::readStandardInputLine();
    const std::string answer = platform::lowercased(platform::trimmed(line));
    if (answer != "y" && answer != "yes") {
        throw CLIError::invalidInput(std::string(question.refused));
    }
}

void confirmDeletion(std::string_view message, std::string_view noTerminal) {
    confirm(
        {.message = message, .prompt = "Continue? [y/N] ", .noTerminal = noTerminal, .refused = "Deletion cancelled."});
}

} // namespace orvane
