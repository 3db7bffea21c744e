#include "ArgumentParser/completions/CompletionShell.h"

#include <algorithm>
#include <cstdlib>

namespace argumentparser {

namespace {

std::string_view environmentText(const char* variable) {
    const char* text = std::getenv(variable);
    return text == nullptr ? std::string_view() : std::string_view(text);
}

} // namespace

std::optional<CompletionShell> completionShell(std::string_view name) {
    const auto found = std::find(completionShellNames.begin(), completionShellNames.end(), name);
    if (found == completionShellNames.end()) {
        return std::nullopt;
    }
    return static_cast<CompletionShell>(found - completionShellNames.begin());
}

std::optional<CompletionShell> autodetectedCompletionShell() {
    const std::string_view path = environmentText("SHELL");
    return completionShell(path.substr(path.rfind('/') + 1));
}

std::optional<CompletionShell> requestingCompletionShell() {
    return completionShell(environmentText("SAP_SHELL"));
}

std::optional<std::string> requestingCompletionShellVersion() {
    const char* version = std::getenv("SAP_SHELL_VERSION");
    return version == nullptr ? std::nullopt : std::optional<std::string>(version);
}

} // namespace argumentparser
