#include "ArgumentParser/help/HelpCommand.h"

#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

const Tree& SubcommandHelpRequest::selected(const Tree& root) const {
    const Tree* node = &root;
    for (const std::string& word : words) {
        const Tree* child = node->child(word);
        if (child == nullptr) {
            break;
        }
        node = child;
    }
    return *node;
}

void HelpCommand::run() const {
    throw SubcommandHelpRequest{*subcommands};
}

} // namespace argumentparser
