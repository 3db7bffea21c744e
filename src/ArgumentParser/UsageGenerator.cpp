#include "ArgumentParser/UsageGenerator.h"

#include "ArgumentParser/TextLayout.h"
#include "platform/Text.h"

namespace argumentparser {

namespace {

constexpr std::size_t longestList = 12;
constexpr int usageIndent = 7; // "Usage: "

std::string joinedSynopses(const std::vector<const ArgumentDefinition*>& definitions) {
    std::string text;
    for (const ArgumentDefinition* definition : definitions) {
        text += ' ';
        text += definition->synopsis();
    }
    return text;
}

std::string synopsis(const std::vector<CommandType>& stack, const ArgumentSet& arguments) {
    std::vector<const ArgumentDefinition*> visible;
    std::vector<const ArgumentDefinition*> essential;
    for (const ArgumentDefinition& definition : arguments.content()) {
        if (!definition.isVisible() || definition.synopsis().empty()) {
            continue;
        }
        visible.push_back(&definition);
        if (definition.isPositional() || !definition.help.isOptional) {
            essential.push_back(&definition);
        }
    }
    const std::string name = toolName(stack);
    if (visible.size() <= longestList) {
        return name + joinedSynopses(visible);
    }
    if (essential.empty() || essential.size() > longestList) {
        return name + " <options>";
    }
    return name + " [<options>]" + joinedSynopses(essential);
}

} // namespace

std::string commandNames(const std::vector<CommandType>& stack) {
    std::vector<std::string> names;
    for (const CommandType& command : stack) {
        names.push_back(command.commandName());
    }
    return platform::joined(names, " ");
}

std::string toolName(const std::vector<CommandType>& stack) {
    const std::string superCommand(stack.front().configuration()._superCommandName);
    return superCommand.empty() ? commandNames(stack) : superCommand + " " + commandNames(stack);
}

std::string usageText(const std::vector<CommandType>& stack, const ArgumentSet& arguments) {
    const CommandConfiguration configuration = stack.back().configuration();
    if (configuration.usage) {
        return std::string(*configuration.usage);
    }
    std::string usage = synopsis(stack, arguments);
    if (!configuration.subcommands().empty()) {
        usage += " <subcommand>";
    }
    return usage;
}

std::string usageMessage(const std::vector<CommandType>& stack, const ArgumentSet& arguments) {
    const std::string usage = usageText(stack, arguments);
    return usage.empty() ? usage : "Usage: " + hangingIndented(usage, usageIndent);
}

} // namespace argumentparser
