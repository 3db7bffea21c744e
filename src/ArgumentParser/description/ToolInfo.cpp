#include "ArgumentParser/description/ToolInfo.h"

#include <algorithm>

#include "ArgumentParser/declaration/BuiltInFlags.h"
#include "ArgumentParser/declaration/Tree.h"
#include "ArgumentParser/help/UsageGenerator.h"

namespace argumentparser {

namespace {

template <class Texts>
std::vector<std::string> owned(const Texts& texts) {
    return {texts.begin(), texts.end()};
}

const char* textOf(ArgumentDefinition::Kind kind) {
    switch (kind) {
    case ArgumentDefinition::Kind::positional:
        return "positional";
    case ArgumentDefinition::Kind::option:
        return "option";
    default:
        return "flag";
    }
}

const char* textOf(ParsingStrategy strategy) {
    switch (strategy) {
    case ParsingStrategy::scanningForValue:
        return "scanningForValue";
    case ParsingStrategy::unconditional:
        return "unconditional";
    case ParsingStrategy::upToNextOption:
        return "upToNextOption";
    case ParsingStrategy::allRemainingInput:
        return "allRemainingInput";
    case ParsingStrategy::postTerminator:
        return "postTerminator";
    case ParsingStrategy::allUnrecognized:
        return "allUnrecognized";
    default:
        return "default";
    }
}

NameInfoV0 infoOf(const Name& name) {
    switch (name.kind) {
    case Name::Kind::shortName:
        return {"short", name.text};
    case Name::Kind::longWithSingleDash:
        return {"longWithSingleDash", name.text};
    default:
        return {"long", name.text};
    }
}

struct CompletionInfo {
    std::optional<CompletionKindV0> operator()(const CompletionKind::Default&) const { return std::nullopt; }
    std::optional<CompletionKindV0> operator()(const CompletionKind::List& list) const {
        return CompletionKindV0{.kind = "list", .values = owned(list.values)};
    }
    std::optional<CompletionKindV0> operator()(const CompletionKind::File& file) const {
        return CompletionKindV0{.kind = "file", .extensions = owned(file.extensions)};
    }
    std::optional<CompletionKindV0> operator()(const CompletionKind::Directory&) const {
        return CompletionKindV0{.kind = "directory"};
    }
    std::optional<CompletionKindV0> operator()(const CompletionKind::ShellCommand& shell) const {
        return CompletionKindV0{.kind = "shellCommand", .command = std::string(shell.command)};
    }
    std::optional<CompletionKindV0> operator()(const CompletionKind::Custom&) const {
        return CompletionKindV0{.kind = "custom"};
    }
    std::optional<CompletionKindV0> operator()(const CompletionKind::CustomAsync&) const {
        return CompletionKindV0{.kind = "customAsync"};
    }
    std::optional<CompletionKindV0> operator()(const CompletionKind::CustomDeprecated&) const {
        return CompletionKindV0{.kind = "customDeprecated"};
    }
};

ArgumentInfoV0 infoOf(const ArgumentDefinition& definition) {
    ArgumentInfoV0 info{.kind = textOf(definition.kind), .parsingStrategy = textOf(definition.parsingStrategy)};
    info.shouldDisplay = definition.isVisible();
    info.sectionTitle = definition.parentTitle;
    info.isOptional = definition.isOptional;
    info.isRepeating = definition.isRepeating;
    std::transform(definition.names.begin(), definition.names.end(), std::back_inserter(info.names),
                   [](const Name& name) { return infoOf(name); });
    if (const Name* name = definition.preferredName()) {
        info.preferredName = infoOf(*name);
    }
    info.valueName = definition.valueName();
    info.defaultValue = definition.defaultValue();
    info.allValues = owned(definition.allValueStrings());
    for (const auto& [value, description] : definition.allValueDescriptions()) {
        info.allValueDescriptions.emplace(value, description);
    }
    info.completionKind = std::visit(CompletionInfo(), definition.completion().value);
    info.abstract = definition.help.abstract;
    info.discussion = definition.help.discussion.staticText;
    return info;
}

CommandInfoV0 infoOf(const Tree& node) {
    const CommandConfiguration& configuration = node.configuration();
    CommandInfoV0 info{.commandName = std::string(node.commandName())};
    info.superCommands = toolNames(node);
    info.superCommands.pop_back();
    info.shouldDisplay = configuration.shouldDisplay;
    info.aliases = owned(configuration.aliases);
    info.abstract = configuration.abstract;
    info.discussion = configuration.discussion;
    if (configuration.defaultSubcommand) {
        info.defaultSubcommand = configuration.defaultSubcommand->commandName();
    }
    for (const Tree* child : node.children()) {
        info.subcommands.push_back(infoOf(*child));
    }
    const std::unique_ptr<ParsableCommand> command = node.element().construct();
    const ArgumentSet arguments = command->argumentSet();
    for (const ArgumentDefinition& definition : arguments.content()) {
        if (definition.isPositional() || !definition.names.empty()) {
            info.arguments.push_back(infoOf(definition));
        }
    }
    for (const ArgumentDefinition& definition : builtInDefinitions(node)) {
        info.arguments.push_back(infoOf(definition));
    }
    return info;
}

} // namespace

ToolInfoV0 toolInfo(const Tree& node) {
    return {.command = infoOf(node)};
}

} // namespace argumentparser
