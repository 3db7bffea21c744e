// The values that parsing a command line gathered for one command, before they are decoded into its inputs.
#pragma once

#include <any>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "ArgumentParser/InputOrigin.h"

namespace argumentparser {

/// Identifies a declared input: its identifier, and those of the option groups around it. Texts are static.
struct InputKey {
    std::string_view name;
    std::vector<std::string_view> path = {};

    /// The path and the name joined with ".".
    std::string text() const;

    auto operator<=>(const InputKey&) const = default;
};

class ParsedValues {
public:
    struct Element {
        std::any value;
        InputOrigin inputOrigin;
        bool shouldClearArrayIfParsed = false; ///< A default list, which the first occurrence replaces.
    };

    /// Nothing when the key has no value.
    const Element* find(const InputKey& key) const;

    void setDefault(const InputKey& key, std::any value);
    /// Stores a parsed value in place of an earlier one, whose places stay part of its origin.
    void set(const InputKey& key, std::any value, const InputOrigin& origin);
    /// Adds `origin` to a value's, for an occurrence that changes nothing.
    void addOrigin(const InputKey& key, const InputOrigin& origin);

    template <class Value>
    void append(const InputKey& key, Value value, const InputOrigin& origin) {
        Element& element = elements_[key];
        auto* list = std::any_cast<std::vector<Value>>(&element.value);
        if (list == nullptr || element.shouldClearArrayIfParsed) {
            element = {std::vector<Value>(), {}, false};
            list = std::any_cast<std::vector<Value>>(&element.value);
        }
        list->push_back(std::move(value));
        element.inputOrigin.formUnion(origin);
    }

    /// Every place that a value came from.
    InputOrigin allOrigins() const;

private:
    std::map<InputKey, Element> elements_;
};

} // namespace argumentparser
