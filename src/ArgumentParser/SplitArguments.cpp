#include "ArgumentParser/SplitArguments.h"

#include <algorithm>

#include "ArgumentParser/ParserError.h"
#include "platform/Text.h"

namespace argumentparser {

namespace {

/// The name before the first "=" and the value behind it, if there is one.
std::pair<std::string_view, std::optional<std::string_view>> splitAtEqualsSign(std::string_view text) {
    const auto equals = text.find('=');
    if (equals == std::string_view::npos) {
        return {text, std::nullopt};
    }
    return {text.substr(0, equals), text.substr(equals + 1)};
}

Name singleDashName(std::string_view text) {
    const bool isShort = platform::characterCount(text) == 1;
    return {isShort ? Name::Kind::shortName : Name::Kind::longWithSingleDash, std::string(text)};
}

} // namespace

SplitArguments::SplitArguments(std::span<const std::string> arguments) : originalInput_(arguments) {
    elements_.reserve(arguments.size());
    bool isBehindTerminator = false;
    for (std::size_t position = 0; position < arguments.size(); ++position) {
        if (isBehindTerminator) {
            elements_.push_back({std::string_view(arguments[position]), {position}});
        } else {
            splitText(position);
            isBehindTerminator = elements_.back().isTerminator();
        }
    }
}

void SplitArguments::splitText(std::size_t position) {
    const std::string_view text = originalInput_[position];
    const std::size_t dashes = std::min(text.find_first_not_of('-'), text.size());
    const std::string_view remainder = text.substr(dashes);
    if (dashes > 2) {
        throw ParserError(InvalidOption{std::string(text)});
    }
    if (dashes == 0 || text == "-") {
        elements_.push_back({text, {position}});
    } else if (text == "--") {
        elements_.push_back({Terminator(), {position}});
    } else if (dashes == 2) {
        auto [name, value] = splitAtEqualsSign(remainder);
        if (value && value->empty()) {
            value.reset();
        }
        elements_.push_back({ParsedArgument{{Name::Kind::longName, std::string(name)}, value}, {position}});
    } else {
        splitSingleDashOption(position, remainder);
    }
}

void SplitArguments::splitSingleDashOption(std::size_t position, std::string_view remainder) {
    const auto [text, value] = splitAtEqualsSign(remainder);
    if (text.empty()) {
        throw ParserError(InvalidOption{singleDashName(remainder).synopsis()});
    }
    const Name name = singleDashName(text);
    elements_.push_back({ParsedArgument{name, value}, {position}});
    if (name.kind == Name::Kind::shortName) {
        return;
    }
    const auto characters = platform::splitCharacters(text);
    for (std::size_t i = 0; i < characters.size(); ++i) {
        if (!platform::isAlphanumeric(characters[i])) {
            throw ParserError(NonAlphanumericShortOption{std::string(characters[i])});
        }
        const bool isLast = i + 1 == characters.size();
        elements_.push_back(
            {ParsedArgument{{Name::Kind::shortName, std::string(characters[i])}, isLast ? value : std::nullopt},
             {position, i}});
    }
}

void SplitArguments::remove(const InputOrigin& origin) {
    for (const ArgumentIndex index : origin.indices()) {
        remove(index);
    }
}

void SplitArguments::remove(ArgumentIndex index) {
    if (index.isComplete()) {
        removePosition(index.inputIndex);
        return;
    }
    const ArgumentIndex group{index.inputIndex};
    removeIf([&](const Element& element) { return element.index == index || element.index == group; });
}

void SplitArguments::removePosition(std::size_t inputIndex) {
    removeIf([&](const Element& element) { return element.index.inputIndex == inputIndex; });
}

template <class Predicate>
void SplitArguments::removeIf(Predicate predicate) {
    const auto unused = elements_.begin() + static_cast<std::ptrdiff_t>(firstUnused_);
    elements_.erase(std::remove_if(unused, elements_.end(), predicate), elements_.end());
}

} // namespace argumentparser
