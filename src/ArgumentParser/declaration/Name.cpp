#include "ArgumentParser/declaration/Name.h"

#include <algorithm>

#include "ArgumentParser/declaration/ConfigurationFailure.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

using platform::firstCharacters;
using platform::isLowercase;
using platform::isUppercase;

std::string withFirstUppercased(std::string_view text) {
    const std::string_view first = firstCharacters(text, 1);
    return platform::uppercased(first) + std::string(text.substr(first.size()));
}

Name nameOf(const NameSpecification::Element& element, std::string_view key) {
    using Kind = NameSpecification::Element::Kind;
    switch (element.kind) {
    case Kind::longName:
        return {Name::Kind::longName, std::string(key)};
    case Kind::shortName:
        if (key.empty()) {
            configurationFailure("An input without a key can't have a short name.");
        }
        return {Name::Kind::shortName, std::string(firstCharacters(key, 1))};
    case Kind::customLong:
        return {element.withSingleDash ? Name::Kind::longWithSingleDash : Name::Kind::longName,
                std::string(element.text)};
    case Kind::customShort:
        break;
    }
    return {Name::Kind::shortName, std::string(element.text), element.allowingJoined};
}

std::string prefixedKey(std::string_view prefix, std::string_view key) {
    return std::string(prefix) + (key.empty() ? "" : "-") + std::string(key);
}

/// `text` behind `prefix`, joined in the style that the text itself is written in.
std::string prefixedText(std::string_view prefix, std::string_view text) {
    const std::string start(prefix);
    if (text.find('-') != std::string_view::npos) {
        return start + "-" + std::string(text);
    }
    if (text.find('_') != std::string_view::npos) {
        return start + "_" + std::string(text);
    }
    const auto characters = platform::splitCharacters(text);
    const bool isCamelCase = !characters.empty() && isLowercase(characters.front()) &&
                             std::any_of(characters.begin(), characters.end(), isUppercase);
    return isCamelCase ? start + withFirstUppercased(text) : start + "-" + std::string(text);
}

} // namespace

std::string Name::synopsis() const {
    return (kind == Kind::longName ? "--" : "-") + text;
}

NameSpecification::NameSpecification(std::initializer_list<Element> elements) {
    for (const Element& element : elements) {
        if (std::find(elements_.begin(), elements_.end(), element) == elements_.end()) {
            elements_.push_back(element);
        }
    }
}

std::vector<Name> NameSpecification::names(std::string_view key) const {
    std::vector<Name> names;
    for (const Element& element : elements_) {
        names.push_back(nameOf(element, key));
    }
    return names;
}

std::vector<Name> NameSpecification::prefixedNames(std::string_view prefix, std::string_view key,
                                                   bool keepShortNames) const {
    std::vector<Name> names;
    for (const Element& element : elements_) {
        Name name = nameOf(element, key);
        if (name.kind == Name::Kind::shortName) {
            if (keepShortNames) {
                names.push_back(std::move(name));
            }
            continue;
        }
        name.text =
            element.kind == Element::Kind::longName ? prefixedKey(prefix, key) : prefixedText(prefix, name.text);
        names.push_back(std::move(name));
    }
    return names;
}

NameSpecification::Element longName() {
    return {};
}

NameSpecification::Element shortName() {
    return {.kind = NameSpecification::Element::Kind::shortName};
}

NameSpecification::Element customLong(std::string_view text, bool withSingleDash) {
    return {.kind = NameSpecification::Element::Kind::customLong, .text = text, .withSingleDash = withSingleDash};
}

NameSpecification::Element customShort(std::string_view character, bool allowingJoined) {
    return {.kind = NameSpecification::Element::Kind::customShort, .text = character, .allowingJoined = allowingJoined};
}

} // namespace argumentparser
