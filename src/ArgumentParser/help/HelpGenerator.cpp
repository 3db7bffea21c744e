#include "ArgumentParser/help/HelpGenerator.h"

#include <algorithm>

#include "ArgumentParser/declaration/BuiltInFlags.h"
#include "ArgumentParser/help/TextLayout.h"
#include "ArgumentParser/help/UsageGenerator.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

using Section = HelpGenerator::Section;
using Element = HelpGenerator::Section::Element;

constexpr int helpIndent = 2;
constexpr int labelColumnWidth = 26;
constexpr int discussionIndent = 8;
constexpr std::string_view descriptionPrefix = "- ";

std::string spaces(int count) {
    return std::string(static_cast<std::size_t>(count), ' ');
}

std::string labelOf(const ArgumentDefinition& definition) {
    if (definition.isPositional()) {
        return "<" + definition.valueName() + ">";
    }
    std::string label;
    for (const bool wantShort : {true, false}) {
        for (const Name& name : definition.names) {
            if ((name.kind == Name::Kind::shortName) == wantShort) {
                label += (label.empty() ? "" : ", ") + name.synopsis();
            }
        }
    }
    return definition.takesValue() ? label + " <" + definition.valueName() + ">" : label;
}

/// What a row says in parentheses behind its abstract; empty for nothing.
std::string valuesNote(const ArgumentDefinition& definition) {
    std::string values;
    if (!definition.help.discussion.enumerated) {
        for (const std::string_view value : definition.allValueStrings()) {
            values.append(values.empty() ? "values: " : ", ").append(value);
        }
    }
    std::string note = values;
    if (const std::string defaultValue = definition.defaultValue(); !defaultValue.empty()) {
        note += (values.empty() ? "default: " : "; default: ") + defaultValue;
    }
    return note.empty() ? note : "(" + note + ")";
}

std::string abstractOf(const ArgumentDefinition& definition) {
    std::string abstract(definition.help.abstract);
    const std::string note = valuesNote(definition);
    if (!abstract.empty() && !note.empty()) {
        abstract += ' ';
    }
    return abstract + note;
}

Element elementOf(const ArgumentDefinition& definition) {
    return {labelOf(definition), abstractOf(definition), definition.help.discussion};
}

/// One row for each definition, and one for each run of flags that together stand for one input.
std::vector<Element> elementsOf(const std::vector<const ArgumentDefinition*>& definitions) {
    std::vector<Element> elements;
    const ArgumentDefinition* previous = nullptr;
    bool hasAbstract = false;
    for (const ArgumentDefinition* definition : definitions) {
        const bool joins =
            previous != nullptr && definition->isComposite && previous->isComposite && definition->key == previous->key;
        Element element = elementOf(*definition);
        if (joins) {
            elements.back().label += "/" + element.label;
            if (!hasAbstract) {
                elements.back().abstract = std::move(element.abstract);
            }
        } else {
            elements.push_back(std::move(element));
            hasAbstract = false;
        }
        hasAbstract = hasAbstract || !definition->help.abstract.empty();
        previous = definition;
    }
    return elements;
}

Element subcommandElement(const CommandType& command, const CommandConfiguration& configuration, bool isDefault) {
    std::string label(command.commandName());
    for (const std::string_view alias : configuration.aliases) {
        label.append(", ").append(alias);
    }
    return {isDefault ? label + " (default)" : label, std::string(configuration.abstract), {}};
}

Section subcommandSection(std::string header, const std::vector<CommandType>& commands,
                          const std::optional<CommandType>& defaultSubcommand) {
    Section section{std::move(header), {}, true};
    for (const CommandType& command : commands) {
        const CommandConfiguration configuration = command.configuration();
        if (configuration.shouldDisplay) {
            section.elements.push_back(subcommandElement(command, configuration, command == defaultSubcommand));
        }
    }
    return section;
}

std::vector<Section> argumentSections(const ArgumentSet& arguments, const std::vector<ArgumentDefinition>& builtIns,
                                      ArgumentVisibility visibility) {
    std::vector<const ArgumentDefinition*> positionals;
    std::vector<const ArgumentDefinition*> options;
    std::vector<std::pair<std::string_view, std::vector<const ArgumentDefinition*>>> titled;
    for (const ArgumentDefinition& definition : arguments.content()) {
        if (definition.help.visibility > visibility || (!definition.isPositional() && definition.names.empty())) {
            continue;
        }
        const std::string_view title = definition.parentTitle;
        if (!title.empty()) {
            auto found =
                std::find_if(titled.begin(), titled.end(), [&](const auto& entry) { return entry.first == title; });
            if (found == titled.end()) {
                found = titled.insert(titled.end(), {title, {}});
            }
            found->second.push_back(&definition);
        } else {
            (definition.isPositional() ? positionals : options).push_back(&definition);
        }
    }
    for (const ArgumentDefinition& definition : builtIns) {
        if (definition.help.visibility <= visibility) {
            options.push_back(&definition);
        }
    }
    std::vector<Section> sections;
    sections.push_back({"ARGUMENTS", elementsOf(positionals)});
    for (const auto& [title, definitions] : titled) {
        sections.push_back({platform::uppercased(title), elementsOf(definitions)});
    }
    sections.push_back({"OPTIONS", elementsOf(options)});
    return sections;
}

/// `text` behind `label` when the label is short enough, else below it; both start a line. Ends its line.
std::string besideLabel(const std::string& label, std::string_view text) {
    const std::size_t length = platform::characterCount(label);
    if (text.empty()) {
        return label + "\n";
    }
    if (length < static_cast<std::size_t>(labelColumnWidth)) {
        return label + std::string(text.substr(std::min(length, text.size()))) + "\n";
    }
    return label + "\n" + std::string(text) + "\n";
}

std::string renderedDiscussion(const ArgumentDiscussion& discussion, int columns) {
    std::string result;
    if (const std::string text = wrapped(discussion.staticText, columns, discussionIndent); !text.empty()) {
        result = text + "\n";
    }
    if (!discussion.enumerated) {
        return result;
    }
    const ValueDescriptions descriptions = discussion.enumerated->allValueDescriptions();
    for (const std::string_view value : discussion.enumerated->allValueStrings()) {
        const auto found = std::find_if(descriptions.begin(), descriptions.end(),
                                        [&](const auto& description) { return description.first == value; });
        const std::string_view description = found == descriptions.end() ? std::string_view() : found->second;
        const int indent = labelColumnWidth + static_cast<int>(descriptionPrefix.size());
        std::string text = wrapped(description, columns, indent);
        // The prefix stands ahead of the first line, in its indent; further lines align behind it.
        text.resize(std::max(text.size(), static_cast<std::size_t>(indent)), ' ');
        text.replace(static_cast<std::size_t>(labelColumnWidth), descriptionPrefix.size(), descriptionPrefix);
        result += besideLabel(spaces(discussionIndent) + std::string(value), platform::trimmedAtEnd(text));
    }
    return result;
}

std::string renderedElement(const Element& element, int columns) {
    return besideLabel(spaces(helpIndent) + element.label, wrapped(element.abstract, columns, labelColumnWidth)) +
           renderedDiscussion(element.discussion, columns);
}

} // namespace

HelpGenerator::HelpGenerator(const Tree& node, ArgumentVisibility visibility) : node_(node) {
    const CommandConfiguration& configuration = node.configuration();
    const std::unique_ptr<ParsableCommand> command = node.element().construct();
    const ArgumentSet arguments = command->argumentSet();

    abstract_ = configuration.abstract;
    if (!configuration.discussion.empty()) {
        abstract_ += (abstract_.empty() ? "\n" : "\n\n") + std::string(configuration.discussion);
    }
    usage_ = usageText(node, arguments);
    sections_ = argumentSections(arguments, builtInDefinitions(node), visibility);
    sections_.push_back(
        subcommandSection("SUBCOMMANDS", configuration.ungroupedSubcommands, configuration.defaultSubcommand));
    for (const CommandGroup& group : configuration.groupedSubcommands) {
        sections_.push_back(subcommandSection(platform::uppercased(std::string(group.name) + " Subcommands"),
                                              group.subcommands, configuration.defaultSubcommand));
    }
    std::erase_if(sections_, [](const Section& section) { return section.elements.empty(); });
}

std::string HelpGenerator::rendered(std::optional<int> columns) const {
    const int width = columns ? *columns : screenWidth();
    std::string screen;
    if (!abstract_.empty()) {
        screen += wrapped("OVERVIEW: " + abstract_, width, 0) + "\n\n";
    }
    if (!usage_.empty()) {
        screen += "USAGE: " + hangingIndented(usage_, usageIndent) + "\n\n";
    }
    bool hasSubcommands = false;
    const char* separator = "";
    for (const Section& section : sections_) {
        screen += separator + section.header + ":\n";
        for (const Element& element : section.elements) {
            screen += renderedElement(element, width);
        }
        hasSubcommands = hasSubcommands || section.isSubcommands;
        separator = "\n";
    }
    if (hasSubcommands) {
        screen += "\n  See '" + subcommandHelpCall(node_) + "' for detailed help.";
    }
    return screen;
}

} // namespace argumentparser
