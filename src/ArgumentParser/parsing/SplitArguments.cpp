#include "ArgumentParser/parsing/SplitArguments.h"

#include <algorithm>

#include "ArgumentParser/declaration/ParserError.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

/// A dash under a combining mark is another character.
std::size_t leadingDashes(std::string_view text) {
    const std::size_t dashes = std::min(text.find_first_not_of('-'), text.size());
    const bool isPartOfAnother = dashes > 0 && platform::firstCharacters(text.substr(dashes - 1), 1).size() > 1;
    return isPartOfAnother ? dashes - 1 : dashes;
}

/// The name before the first "=" and the value behind it, if there is one. A value may begin with a combining mark.
std::pair<std::string_view, std::optional<std::string_view>> splitAtEqualsSign(std::string_view text) {
    const std::size_t equals = text.find('=');
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

SplitArguments::SplitArguments(std::span<const std::string_view> arguments) : originalInput_(arguments) {
    elements_.reserve(arguments.size());
    offsets_.reserve(arguments.size() + 1);
    bool isBehindTerminator = false;
    for (std::size_t position = 0; position < arguments.size(); ++position) {
        offsets_.push_back(elements_.size());
        if (isBehindTerminator) {
            elements_.push_back({arguments[position], {position}});
        } else {
            splitText(position);
            isBehindTerminator = elements_.back().isTerminator();
        }
    }
    offsets_.push_back(elements_.size());
}

void SplitArguments::splitText(std::size_t position) {
    const std::string_view text = originalInput_[position];
    const std::size_t dashes = leadingDashes(text);
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

const SplitArguments::Element* SplitArguments::firstUnused() const {
    const auto found =
        std::find_if(elements_.begin(), elements_.end(), [](const Element& element) { return !element.isUsed; });
    return found == elements_.end() ? nullptr : &*found;
}

std::size_t SplitArguments::unusedCount() const {
    return static_cast<std::size_t>(
        std::count_if(elements_.begin(), elements_.end(), [](const Element& element) { return !element.isUsed; }));
}

void SplitArguments::markUsed(ArgumentIndex index) {
    const std::size_t complete = offsets_[index.inputIndex];
    elements_[complete].isUsed = true;
    if (index.subIndex) {
        elements_[complete + 1 + *index.subIndex].isUsed = true;
        return;
    }
    for (std::size_t offset = complete + 1; offset < offsetBehind(index.inputIndex); ++offset) {
        elements_[offset].isUsed = true;
    }
}

} // namespace argumentparser
