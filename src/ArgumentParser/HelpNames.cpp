#include "ArgumentParser/HelpNames.h"

#include <algorithm>

#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

namespace {

bool isShort(const Name& name) {
    return name.kind == Name::Kind::shortName;
}

} // namespace

std::vector<Name> getHelpNames(const std::vector<CommandType>& stack, ArgumentVisibility visibility) {
    NameSpecification specification{shortName(), longName()};
    for (const CommandType& command : stack) {
        if (const auto helpNames = command.configuration().helpNames) {
            specification = *helpNames;
        }
    }
    std::vector<Name> names = specification.names("help");
    std::stable_partition(names.begin(), names.end(), isShort);
    if (visibility != ArgumentVisibility::shown) {
        std::erase_if(names, isShort);
        for (Name& name : names) {
            name.text += "-hidden";
        }
    }
    return names;
}

std::optional<Name> primaryHelpName(const std::vector<CommandType>& stack) {
    const std::vector<Name> names = getHelpNames(stack, ArgumentVisibility::shown);
    if (names.empty()) {
        return std::nullopt;
    }
    const auto found = std::find_if_not(names.begin(), names.end(), isShort);
    return found == names.end() ? names.front() : *found;
}

std::string_view versionOf(const std::vector<CommandType>& stack) {
    std::string_view version;
    for (const CommandType& command : stack) {
        if (const std::string_view own = command.configuration().version; !own.empty()) {
            version = own;
        }
    }
    return version;
}

} // namespace argumentparser
