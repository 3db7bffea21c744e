#include "ArgumentParser/declaration/Tree.h"

#include <algorithm>
#include <string>

#include "ArgumentParser/declaration/ConfigurationFailure.h"

namespace argumentparser {

namespace {

[[noreturn]] void declarationFailure(std::string_view commandName, const char* fault) {
    configurationFailure("The command \"" + std::string(commandName) + "\" can't have " + fault);
}

} // namespace

Tree::Tree(const CommandType& element, const std::optional<CommandType>& builtIn, const Tree* parent)
    : element_(element), builtIn_(builtIn), configuration_(element.configuration()),
      commandName_(configuration_.commandName.empty() ? element.typeName() : configuration_.commandName),
      parent_(parent) {
    const auto& aliases = configuration_.aliases;
    if (std::find(aliases.begin(), aliases.end(), commandName_) != aliases.end()) {
        declarationFailure(commandName_, "an alias with the same name as the command itself.");
    }
}

void Tree::listSubcommands() const {
    subcommands_ = configuration_.subcommands();
    if (std::find(subcommands_->begin(), subcommands_->end(), element_) != subcommands_->end()) {
        declarationFailure(commandName_, "itself as its own subcommand.");
    }
    if (builtIn_ && !subcommands_->empty()) {
        subcommands_->push_back(*builtIn_);
    }
}

template <class Search>
const Tree* Tree::findAmongChildren(Search search) const {
    if (!subcommands_) {
        listSubcommands();
    }
    for (std::size_t i = 0; i < subcommands_->size(); ++i) {
        if (i == children_.size()) {
            children_.push_back(std::unique_ptr<Tree>(new Tree((*subcommands_)[i], std::nullopt, this)));
        }
        if (const Tree* found = search(*children_[i])) {
            return found;
        }
    }
    return nullptr;
}

const Tree* Tree::child(std::string_view word) const {
    return findAmongChildren([&](const Tree& child) {
        const auto& aliases = child.configuration_.aliases;
        const bool isSelected =
            child.commandName_ == word || std::find(aliases.begin(), aliases.end(), word) != aliases.end();
        return isSelected ? &child : nullptr;
    });
}

const Tree* Tree::child(const CommandType& type) const {
    return findAmongChildren([&](const Tree& child) { return child.element_ == type ? &child : nullptr; });
}

std::vector<const Tree*> Tree::children() const {
    std::vector<const Tree*> children;
    findAmongChildren([&](const Tree& child) -> const Tree* {
        children.push_back(&child);
        return nullptr;
    });
    return children;
}

const Tree* Tree::find(const CommandType& type) const {
    return element_ == type ? this : findAmongChildren([&](const Tree& child) { return child.find(type); });
}

std::vector<const Tree*> Tree::path() const {
    std::vector<const Tree*> nodes;
    for (const Tree* node = this; node != nullptr; node = node->parent_) {
        nodes.push_back(node);
    }
    std::reverse(nodes.begin(), nodes.end());
    return nodes;
}

} // namespace argumentparser
