#include "ArgumentParser/declaration/BuiltInFlags.h"

#include <algorithm>

namespace argumentparser {

namespace {

constexpr std::string_view versionFlagText = "version";

bool isShort(const Name& name) {
    return name.kind == Name::Kind::shortName;
}

bool isLong(const Name& name, std::string_view text) {
    return name.kind == Name::Kind::longName && name.text == text;
}

NameSpecification helpNameSpecification(const Tree& node) {
    for (const Tree* command = &node; command != nullptr; command = command->parent()) {
        if (const auto& helpNames = command->configuration().helpNames) {
            return *helpNames;
        }
    }
    return {shortName(), longName()};
}

ArgumentDefinition builtInFlag(std::vector<Name> names, const ArgumentHelp& help) {
    return {.names = std::move(names), .key = {}, .help = help, .isOptional = true};
}

} // namespace

std::vector<Name> helpFlagNames(const Tree& node, ArgumentVisibility visibility) {
    std::vector<Name> names = helpNameSpecification(node).names("help");
    std::stable_partition(names.begin(), names.end(), isShort);
    if (visibility != ArgumentVisibility::shown) {
        std::erase_if(names, isShort);
        for (Name& name : names) {
            name.text += "-hidden";
        }
    }
    return names;
}

std::optional<Name> primaryHelpFlagName(const Tree& node) {
    const std::vector<Name> names = helpFlagNames(node, ArgumentVisibility::shown);
    if (names.empty()) {
        return std::nullopt;
    }
    const auto found = std::find_if_not(names.begin(), names.end(), isShort);
    return found == names.end() ? names.front() : *found;
}

std::string_view versionOf(const Tree& node) {
    for (const Tree* command = &node; command != nullptr; command = command->parent()) {
        if (const std::string_view version = command->configuration().version; !version.empty()) {
            return version;
        }
    }
    return {};
}

bool isVersionFlagName(const Name& name) {
    return isLong(name, versionFlagText);
}

bool isDumpHelpFlagName(const Name& name) {
    return isLong(name, "experimental-dump-help");
}

std::vector<ArgumentDefinition> builtInDefinitions(const Tree& node) {
    std::vector<ArgumentDefinition> definitions;
    if (!versionOf(node).empty()) {
        definitions.push_back(builtInFlag({{Name::Kind::longName, std::string(versionFlagText)}}, "Show the version."));
    }
    if (std::vector<Name> names = helpFlagNames(node, ArgumentVisibility::shown); !names.empty()) {
        definitions.push_back(builtInFlag(std::move(names), "Show help information."));
    }
    if (std::vector<Name> names = helpFlagNames(node, ArgumentVisibility::hidden); !names.empty()) {
        definitions.push_back(
            builtInFlag(std::move(names), ArgumentHelp("", {.visibility = ArgumentVisibility::hidden})));
    }
    return definitions;
}

} // namespace argumentparser
