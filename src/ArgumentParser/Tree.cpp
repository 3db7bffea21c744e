#include "ArgumentParser/Tree.h"

#include <algorithm>

#include "ArgumentParser/ConfigurationFailure.h"
#include "ArgumentParser/HelpCommand.h"

namespace argumentparser {

Tree::Tree(const CommandType& root) : Tree(root, nullptr) {
    if (!children_.empty()) {
        children_.push_back(std::unique_ptr<Tree>(new Tree(CommandType::of<HelpCommand>(), this)));
    }
}

Tree::Tree(const CommandType& element, const Tree* parent)
    : element_(element), configuration_(element.configuration()),
      commandName_(configuration_.commandName.empty() ? element.commandName() : configuration_.commandName),
      parent_(parent) {
    const auto& aliases = configuration_.aliases;
    if (std::find(aliases.begin(), aliases.end(), commandName_) != aliases.end()) {
        configurationFailure("The command \"" + commandName_ +
                             "\" can't have an alias with the same name as the command itself.");
    }
    for (const CommandType& subcommand : configuration_.subcommands()) {
        if (subcommand == element_) {
            configurationFailure("The command \"" + commandName_ + "\" can't have itself as its own subcommand.");
        }
        children_.push_back(std::unique_ptr<Tree>(new Tree(subcommand, this)));
    }
}

const Tree* Tree::child(std::string_view word) const {
    const auto found = std::find_if(children_.begin(), children_.end(), [&](const auto& child) {
        const auto& aliases = child->configuration_.aliases;
        return child->commandName_ == word || std::find(aliases.begin(), aliases.end(), word) != aliases.end();
    });
    return found == children_.end() ? nullptr : found->get();
}

const Tree* Tree::child(const CommandType& type) const {
    const auto found =
        std::find_if(children_.begin(), children_.end(), [&](const auto& child) { return child->element_ == type; });
    return found == children_.end() ? nullptr : found->get();
}

std::vector<CommandType> Tree::commandStack() const {
    std::vector<CommandType> stack;
    for (const Tree* node = this; node != nullptr; node = node->parent_) {
        stack.push_back(node->element_);
    }
    std::reverse(stack.begin(), stack.end());
    return stack;
}

const Tree* Tree::find(const CommandType& type) const {
    if (element_ == type) {
        return this;
    }
    for (const auto& child : children_) {
        if (const Tree* found = child->find(type)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace argumentparser
