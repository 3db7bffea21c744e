#include "ArgumentParser/HelpCommand.h"

#include "ArgumentParser/Tree.h"

namespace argumentparser {

void HelpCommand::resolve(const Tree& root) {
    const Tree* node = &root;
    for (const std::string& word : *subcommands) {
        const Tree* child = node->child(word);
        if (child == nullptr) {
            break;
        }
        node = child;
    }
    commandStack_ = node->commandStack();
}

void HelpCommand::run() const {
    throw CommandError{commandStack_, HelpRequested(), {}};
}

} // namespace argumentparser
