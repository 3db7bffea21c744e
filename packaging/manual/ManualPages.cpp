#include "ManualPages.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "Markdown.h"
#include "Roff.h"
#include "platform/text/Text.h"

namespace manual {

namespace {

using argumentparser::ArgumentInfoV0;
using argumentparser::CommandInfoV0;
using argumentparser::NameInfoV0;

bool isGroup(const CommandInfoV0& command) {
    return !command.subcommands.empty();
}

/// The words by which the command is called, with `separator` between them.
std::string words(const CommandInfoV0& command, std::string_view separator) {
    std::vector<std::string> names = command.superCommands;
    names.push_back(command.commandName);
    return platform::joined(names, separator);
}

std::string pageName(const CommandInfoV0& command) {
    return words(command, "-");
}

std::string reference(const CommandInfoV0& command) {
    return bold(pageName(command)) + "(1)";
}

std::string typed(const NameInfoV0& name) {
    return (name.kind == "long" ? "--" : "-") + name.name;
}

/// The inputs that are shown, without those that every command has.
std::vector<ArgumentInfoV0> ownInputs(const CommandInfoV0& command, const std::vector<ArgumentInfoV0>& common) {
    std::vector<ArgumentInfoV0> inputs;
    std::copy_if(command.arguments.begin(), command.arguments.end(), std::back_inserter(inputs),
                 [&](const ArgumentInfoV0& input) {
                     return input.shouldDisplay && std::find(common.begin(), common.end(), input) == common.end();
                 });
    return inputs;
}

std::string withValue(const std::string& names, const ArgumentInfoV0& input) {
    constexpr const char* unbreakableBlank = "\\ ";
    return input.kind == "option" ? names + unbreakableBlank + italic(input.valueName) : names;
}

std::string synopsisOf(const ArgumentInfoV0& input) {
    const std::string form =
        input.kind == "positional" ? italic(input.valueName) : withValue(bold(typed(*input.preferredName)), input);
    const std::string repeated = input.isRepeating ? form + " ..." : form;
    constexpr const char* noSentenceEnd = "\\&";
    return (input.isOptional ? "[" + repeated + "]" : repeated) + noSentenceEnd;
}

/// One paragraph: the words of the command, then its inputs.
std::string synopsis(const CommandInfoV0& command, const std::vector<ArgumentInfoV0>& inputs) {
    std::string text = bold(words(command, " "));
    for (const ArgumentInfoV0& input : inputs) {
        text += "\n" + synopsisOf(input);
    }
    return text + "\n";
}

std::string label(const ArgumentInfoV0& input) {
    if (input.kind == "positional") {
        return italic(input.valueName);
    }
    std::vector<std::string> names;
    for (const bool wantShort : {true, false}) {
        for (const NameInfoV0& name : input.names) {
            if ((name.kind == "short") == wantShort) {
                names.push_back(bold(typed(name)));
            }
        }
    }
    return withValue(platform::joined(names, ", "), input);
}

/// What is known of the values, as the help screens put it; empty for nothing.
std::string valuesNote(const ArgumentInfoV0& input) {
    std::vector<std::string> notes;
    if (!input.allValues.empty()) {
        notes.push_back("values: " + platform::joined(input.allValues, ", "));
    }
    if (!input.defaultValue.empty()) {
        notes.push_back("default: " + input.defaultValue);
    }
    return notes.empty() ? "" : "(" + platform::joined(notes, "; ") + ")";
}

/// A list of inputs with their texts.
std::string list(const std::vector<ArgumentInfoV0>& inputs) {
    std::string text;
    for (const ArgumentInfoV0& input : inputs) {
        text += ".TP\n" + label(input) + "\n";
        for (const std::string& line : {input.abstract, input.discussion, valuesNote(input)}) {
            text += line.empty() ? "" : escaped(line) + "\n";
        }
    }
    return text;
}

std::string commandSection(const CommandInfoV0& command, const CommandInfoV0& group) {
    const std::vector<ArgumentInfoV0> inputs = ownInputs(command, group.arguments);
    std::string text = ".SS " + escaped(words(command, " ")) + "\n" + paragraphs(command.abstract);
    if (command.commandName == group.defaultSubcommand) {
        text += "This is what runs when no subcommand is named.\n";
    }
    return text + paragraphs(command.discussion) + ".PP\n" + synopsis(command, inputs) + list(inputs);
}

std::string nameSection(const CommandInfoV0& command) {
    std::string_view summary = command.abstract;
    summary.remove_suffix(summary.ends_with('.') ? 1 : 0);
    return ".SH NAME\n" + escaped(pageName(command)) + " \\- " + escaped(summary) + "\n";
}

/// What commands share is told on a page of its own, which each of them refers to.
constexpr const char* filtersPage = "orvane-cli-filters";

bool hasFilters(const CommandInfoV0& group) {
    constexpr std::array<std::string_view, 4> filters{"kind", "limit", "owner", "since"};
    return std::ranges::any_of(group.subcommands, [&](const CommandInfoV0& command) {
        return std::ranges::any_of(command.arguments, [&](const ArgumentInfoV0& input) {
            return input.preferredName && std::ranges::count(filters, input.preferredName->name) > 0;
        });
    });
}

/// The references that a page ends with: to the tool's own, and to those that `isNear` picks.
template <class Predicate>
std::string seeAlsoSection(const std::vector<const CommandInfoV0*>& pages, Predicate isNear, bool toFilters) {
    std::vector<std::string> references;
    for (const CommandInfoV0* page : pages) {
        if (isNear(*page)) {
            references.push_back(reference(*page));
        }
    }
    if (toFilters) {
        references.push_back(bold(filtersPage) + "(7)");
    }
    return ".SH SEE ALSO\n" + platform::joined(references, ",\n") + "\n";
}

bool isBelow(const CommandInfoV0& command, const CommandInfoV0& group) {
    return !command.superCommands.empty() && pageName(group) == platform::joined(command.superCommands, "-");
}

std::string firstLines(const std::string& name, const std::string& section, std::string_view version) {
    // Neither words nor blanks are stretched: what is typed looks like what is shown. From 1.23 on groff adjusts as the
    // string AD says behind every tag.
    const std::string layout = ".nh\n.ad l\n.ds AD l\n";
    return ".TH " + escaped(platform::uppercased(name)) + " " + section + " \"\" \"" + escaped(version) + "\" \"" +
           (section == "1" ? "User Commands" : "Conventions") + "\"\n" + layout;
}

/// The sections of a page that are written by hand, among them examples.
std::string writtenSections(const std::string& name, const WrittenTexts& texts) {
    const std::string text = texts(name);
    if (!showsCommand(text)) {
        throw std::runtime_error("There are no examples for " + name);
    }
    return roffOf(text);
}

ManualPage groupPage(const CommandInfoV0& group, const std::vector<const CommandInfoV0*>& pages,
                     std::string_view version, const WrittenTexts& texts) {
    const std::vector<ArgumentInfoV0> inputs = ownInputs(group, {});
    std::string commands;
    std::string groups;
    for (const CommandInfoV0& command : group.subcommands) {
        if (!command.shouldDisplay) {
            continue;
        }
        if (isGroup(command)) {
            groups += ".TP\n" + reference(command) + "\n" + escaped(command.abstract) + "\n";
        } else {
            commands += commandSection(command, group);
        }
    }
    const auto isNear = [&](const CommandInfoV0& page) {
        return isBelow(page, group) || isBelow(group, page) || (&page == pages.front() && &page != &group);
    };
    const std::string name = pageName(group);
    return {name + ".1", firstLines(name, "1", version) + nameSection(group) + ".SH SYNOPSIS\n" +
                             bold(words(group, " ")) + "\n" + italic("subcommand") + "\n[" + italic("argument") +
                             " ...]\n.SH DESCRIPTION\n" + paragraphs(group.abstract) + paragraphs(group.discussion) +
                             ".SH OPTIONS\nEvery command takes them.\n" + list(inputs) +
                             (groups.empty() ? "" : ".SH COMMAND GROUPS\nEach has a page of its own.\n" + groups) +
                             (commands.empty() ? "" : ".SH COMMANDS\n" + commands) + writtenSections(name, texts) +
                             seeAlsoSection(pages, isNear, hasFilters(group))};
}

void addGroups(const CommandInfoV0& command, std::vector<const CommandInfoV0*>& groups) {
    if (command.shouldDisplay && isGroup(command)) {
        groups.push_back(&command);
        for (const CommandInfoV0& child : command.subcommands) {
            addGroups(child, groups);
        }
    }
}

} // namespace

std::vector<ManualPage> manualPages(const CommandInfoV0& root, std::string_view version, const WrittenTexts& texts) {
    std::vector<const CommandInfoV0*> groups;
    addGroups(root, groups);
    std::vector<ManualPage> pages;
    for (const CommandInfoV0* group : groups) {
        pages.push_back(groupPage(*group, groups, version, texts));
    }
    pages.push_back({std::string(filtersPage) + ".7", firstLines(filtersPage, "7", version) +
                                                          writtenSections(filtersPage, texts) +
                                                          seeAlsoSection(groups, hasFilters, false)});
    return pages;
}

} // namespace manual
