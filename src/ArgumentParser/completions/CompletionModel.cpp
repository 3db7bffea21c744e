#include "ArgumentParser/completions/CompletionModel.h"

#include <algorithm>

#include "ArgumentParser/completions/CompletionText.h"
#include "ArgumentParser/declaration/BuiltInFlags.h"
#include "ArgumentParser/help/HelpCommand.h"

namespace argumentparser {

namespace {

bool standForOneInput(const ArgumentDefinition& left, const ArgumentDefinition& right) {
    return &left == &right || (left.isComposite && right.isComposite && left.key == right.key);
}

CompletionInput inputOf(const ArgumentDefinition& definition, const std::vector<ArgumentDefinition>& definitions) {
    CompletionInput input;
    input.names = definition.names;
    for (const ArgumentDefinition& other : definitions) {
        if (standForOneInput(definition, other)) {
            for (const Name& name : other.names) {
                input.alternatives.push_back(name.synopsis());
            }
        }
    }
    input.takesValue = definition.takesValue();
    input.isRepeating = definition.isRepeating;
    input.parsingStrategy = definition.parsingStrategy;
    input.valueName = onOneLine(definition.valueName());
    input.description = onOneLine(definition.help.abstract);
    if (const Name* name = definition.preferredName()) {
        input.identifier = name->synopsis();
    }
    input.completion = definition.completion();
    input.isBuiltIn = definition.input == nullptr;
    input.isOffered = definition.isVisible();
    return input;
}

void addInputs(CompletionCommand& command, const std::vector<ArgumentDefinition>& definitions) {
    for (const ArgumentDefinition& definition : definitions) {
        CompletionInput input = inputOf(definition, definitions);
        if (definition.isPositional()) {
            input.identifier = "positional@" + std::to_string(command.positionals.size());
            command.positionals.push_back(std::move(input));
        } else if (definition.isVisible() && !definition.names.empty()) {
            command.options.push_back(std::move(input));
        }
    }
}

} // namespace

bool CompletionInput::takesSeveralValues() const {
    return parsingStrategy == ParsingStrategy::upToNextOption || parsingStrategy == ParsingStrategy::allRemainingInput;
}

std::vector<std::string> CompletionInput::synopses() const {
    std::vector<std::string> texts;
    for (const Name& name : names) {
        texts.push_back(name.synopsis());
    }
    return texts;
}

std::vector<const CompletionCommand*> CompletionCommand::displayedChildren() const {
    std::vector<const CompletionCommand*> displayed;
    for (const CompletionCommand& child : children) {
        if (child.isDisplayed) {
            displayed.push_back(&child);
        }
    }
    return displayed;
}

std::vector<std::string> CompletionCommand::childWords() const {
    std::vector<std::string> all;
    for (const CompletionCommand& child : children) {
        all.insert(all.end(), child.words.begin(), child.words.end());
    }
    return all;
}

const CompletionCommand* CompletionCommand::defaultCommand() const {
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const CompletionCommand& child) { return child.name() == defaultChild; });
    return found == children.end() ? nullptr : &*found;
}

CompletionCommand completionCommand(const Tree& node) {
    const CommandConfiguration& configuration = node.configuration();
    CompletionCommand command;
    for (const Tree* ancestor : node.path()) {
        command.path.emplace_back(ancestor->commandName());
    }
    command.words = {std::string(node.commandName())};
    command.words.insert(command.words.end(), configuration.aliases.begin(), configuration.aliases.end());
    command.description = onOneLine(configuration.abstract);
    command.isDisplayed = configuration.shouldDisplay;
    command.isHelp = node.element() == CommandType::of<HelpCommand>();
    for (const Tree* child : node.children()) {
        command.children.push_back(completionCommand(*child));
    }
    const std::unique_ptr<ParsableCommand> declared = node.element().construct();
    addInputs(command, declared->argumentSet().content());
    addInputs(command, builtInDefinitions(node));
    if (configuration.defaultSubcommand) {
        command.defaultChild = configuration.defaultSubcommand->commandName();
    }
    if (const CompletionCommand* child = command.defaultCommand()) {
        std::erase_if(command.options, [&](const CompletionInput& input) {
            return std::any_of(child->options.begin(), child->options.end(),
                               [&](const CompletionInput& other) { return other.names == input.names; });
        });
    }
    return command;
}

} // namespace argumentparser
