#include "ArgumentParser/completions/CompletionsGenerator.h"

#include "ArgumentParser/declaration/ConfigurationFailure.h"

namespace argumentparser {

namespace {

std::string script(const CompletionCommand& root, CompletionShell shell) {
    switch (shell) {
    case CompletionShell::zsh:
        return zshCompletionScript(root);
    case CompletionShell::bash:
        return bashCompletionScript(root);
    case CompletionShell::fish:
        return fishCompletionScript(root);
    }
    configurationFailure("Invalid CompletionShell: " + std::to_string(static_cast<int>(shell)));
}

} // namespace

std::string completionScript(const Tree& root, CompletionShell shell) {
    std::string text = script(completionCommand(root), shell);
    text.pop_back(); // Printing adds a line end.
    return text;
}

} // namespace argumentparser
