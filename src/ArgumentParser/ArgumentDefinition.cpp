#include "ArgumentParser/ArgumentDefinition.h"

#include <algorithm>

namespace argumentparser {

const std::vector<Name>& ArgumentDefinition::names() const {
    static const std::vector<Name> none;
    const Named* named = std::get_if<Named>(&kind);
    return named == nullptr ? none : named->names;
}

const Name* ArgumentDefinition::preferredName() const {
    const std::vector<Name>& all = names();
    const auto found =
        std::find_if(all.begin(), all.end(), [](const Name& name) { return name.kind != Name::Kind::shortName; });
    if (found != all.end()) {
        return &*found;
    }
    return all.empty() ? nullptr : &all.front();
}

std::string ArgumentDefinition::valueName() const {
    if (!help.valueName.empty()) {
        return std::string(help.valueName);
    }
    if (const Name* name = preferredName()) {
        return name->text;
    }
    return help.keys.empty() ? "value" : kebabCase(help.keys.front().name);
}

std::string ArgumentDefinition::synopsis() const {
    const std::string text = synopsisWithoutBrackets();
    return help.isOptional && !text.empty() ? "[" + text + "]" : text;
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
    if (help.isRepeating) {
        text += " ...";
        if (parsingStrategy == ParsingStrategy::allRemainingInput) {
            text = "-- " + text;
        }
    }
    return text;
}

void ArgumentSet::append(ArgumentDefinition definition) {
    for (const Name& name : definition.names()) {
        if (find(name) == nullptr) {
            namePositions_.emplace_back(name, content_.size());
        }
    }
    content_.push_back(std::move(definition));
}

const ArgumentDefinition* ArgumentSet::find(const Name& name) const {
    const auto found = std::find_if(namePositions_.begin(), namePositions_.end(),
                                    [&](const auto& position) { return position.first == name; });
    return found == namePositions_.end() ? nullptr : &content_[found->second];
}

bool ArgumentSet::capturesForPassthrough() const {
    return std::any_of(content_.begin(), content_.end(), [](const ArgumentDefinition& definition) {
        return definition.isRepeatingPositional() && definition.parsingStrategy == ParsingStrategy::allRemainingInput;
    });
}

} // namespace argumentparser
