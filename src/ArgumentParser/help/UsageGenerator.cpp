#include "ArgumentParser/help/UsageGenerator.h"

#include "ArgumentParser/help/TextLayout.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

constexpr std::size_t maximumListLength = 12;

std::string joinedSynopses(const std::vector<const ArgumentDefinition*>& definitions) {
    std::string text;
    for (const ArgumentDefinition* definition : definitions) {
        text += ' ';
        text += definition->synopsis();
    }
    return text;
}

std::string synopsis(const Tree& node, const ArgumentSet& arguments) {
    std::vector<const ArgumentDefinition*> visible;
    std::vector<const ArgumentDefinition*> required;
    for (const ArgumentDefinition& definition : arguments.content()) {
        if (!definition.isVisible() || definition.synopsis().empty()) {
            continue;
        }
        visible.push_back(&definition);
        if (definition.isPositional() || !definition.isOptional) {
            required.push_back(&definition);
        }
    }
    const std::string name = platform::joined(toolNames(node), " ");
    if (visible.size() <= maximumListLength) {
        return name + joinedSynopses(visible);
    }
    if (required.empty() || required.size() > maximumListLength) {
        return name + " <options>";
    }
    return name + " [<options>]" + joinedSynopses(required);
}

} // namespace

std::vector<std::string> toolNames(const Tree& node) {
    const std::vector<const Tree*> path = node.path();
    std::vector<std::string> names;
    if (const std::string_view superCommand = path.front()->configuration()._superCommandName; !superCommand.empty()) {
        names.emplace_back(superCommand);
    }
    for (const Tree* command : path) {
        names.emplace_back(command->commandName());
    }
    return names;
}

std::string commandNames(const Tree& node) {
    std::string names;
    for (const Tree* command : node.path()) {
        names.append(names.empty() ? "" : " ").append(command->commandName());
    }
    return names;
}

std::string usageText(const Tree& node, const ArgumentSet& arguments) {
    const CommandConfiguration& configuration = node.configuration();
    if (configuration.usage) {
        return std::string(*configuration.usage);
    }
    const bool hasSubcommands = !configuration.subcommands().empty();
    return synopsis(node, arguments) + (hasSubcommands ? " <subcommand>" : "");
}

std::string usageMessage(const Tree& node, const ArgumentSet& arguments) {
    const std::string usage = usageText(node, arguments);
    return usage.empty() ? usage : "Usage: " + hangingIndented(usage, usageIndent);
}

std::string subcommandHelpCall(const Tree& node) {
    std::vector<std::string> names = toolNames(node);
    names.insert(names.begin() + 1, "help");
    return platform::joined(names, " ") + " <subcommand>";
}

} // namespace argumentparser
