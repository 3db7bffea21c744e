#include "ArgumentParser/help/HelpCommand.h"

#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

void HelpCommand::resolve(const Tree& root) {
    node_ = &root;
    for (const std::string& word : *subcommands) {
        const Tree* child = node_->child(word);
        if (child == nullptr) {
            break;
        }
        node_ = child;
    }
}

void HelpCommand::run() const {
    throw CommandError{node_, HelpRequested()};
}

} // namespace argumentparser
