#include "ArgumentParser/declaration/ArgumentDefinition.h"

#include <algorithm>

#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

const Name* ArgumentDefinition::preferredName() const {
    const auto found =
        std::find_if(names.begin(), names.end(), [](const Name& name) { return name.kind != Name::Kind::shortName; });
    if (found != names.end()) {
        return &*found;
    }
    return names.empty() ? nullptr : &names.front();
}

std::string ArgumentDefinition::valueName() const {
    if (!help.valueName.empty()) {
        return std::string(help.valueName);
    }
    const Name* name = preferredName();
    return name != nullptr ? name->text : std::string(key.name);
}

std::string ArgumentDefinition::synopsis() const {
    const std::string text = synopsisWithoutBrackets();
    return isOptional && !text.empty() ? "[" + text + "]" : text;
}

std::string ArgumentDefinition::synopsisWithoutBrackets() const {
    std::string text;
    if (const Name* name = preferredName()) {
        text = name->synopsis();
        if (takesValue()) {
            text += " <" + valueName() + ">";
        }
    } else if (isPositional()) {
        text = "<" + valueName() + ">";
    } else {
        return text;
    }
    if (isRepeating) {
        text += " ...";
        if (parsingStrategy == ParsingStrategy::allRemainingInput) {
            text = "-- " + text;
        }
    }
    return text;
}

std::string ArgumentDefinition::defaultValue() const {
    return input == nullptr ? std::string() : input->defaultValueText();
}

std::vector<std::string_view> ArgumentDefinition::allValueStrings() const {
    return input == nullptr ? std::vector<std::string_view>() : input->allValueStrings();
}

ValueDescriptions ArgumentDefinition::allValueDescriptions() const {
    return input == nullptr ? ValueDescriptions() : input->allValueDescriptions();
}

CompletionKind ArgumentDefinition::completion() const {
    return input == nullptr ? CompletionKind() : input->completion();
}

} // namespace argumentparser
