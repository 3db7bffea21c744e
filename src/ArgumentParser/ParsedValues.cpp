#include "ArgumentParser/ParsedValues.h"

namespace argumentparser {

std::string InputKey::text() const {
    std::string text;
    for (const std::string_view piece : path) {
        text.append(piece).append(".");
    }
    return text.append(name);
}

const ParsedValues::Element* ParsedValues::find(const InputKey& key) const {
    const auto found = elements_.find(key);
    return found == elements_.end() ? nullptr : &found->second;
}

void ParsedValues::setDefault(const InputKey& key, std::any value) {
    elements_[key] = {std::move(value), {}, true};
}

void ParsedValues::set(const InputKey& key, std::any value, const InputOrigin& origin) {
    Element& element = elements_[key];
    element.value = std::move(value);
    element.inputOrigin.formUnion(origin);
    element.shouldClearArrayIfParsed = false;
}

void ParsedValues::addOrigin(const InputKey& key, const InputOrigin& origin) {
    elements_[key].inputOrigin.formUnion(origin);
}

InputOrigin ParsedValues::allOrigins() const {
    InputOrigin origin;
    for (const auto& [key, element] : elements_) {
        origin.formUnion(element.inputOrigin);
    }
    return origin;
}

} // namespace argumentparser
