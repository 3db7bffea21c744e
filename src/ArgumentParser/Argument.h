// A positional input.
#pragma once

#include "ArgumentParser/declaration/ValueReadingInput.h"

namespace argumentparser {

/// `T` is a value type, an optional one or a vector, which takes every value that is left.
template <class T>
class Argument final : public ValueReadingInput<T> {
public:
    using Element = typename ValueReadingInput<T>::Element;

    /// Required, unless `T` is optional.
    Argument(ParsableArguments& owner, std::string_view key, const ArgumentHelp& help,
             ValueSettings<Element> settings = {})
        : ValueReadingInput<T>(owner, key, std::nullopt, help, std::move(settings)) {}
    /// With a default.
    Argument(ParsableArguments& owner, std::string_view key, T initial, const ArgumentHelp& help,
             ValueSettings<Element> settings = {})
        : ValueReadingInput<T>(owner, key, std::move(initial), help, std::move(settings)) {}

    void addDefinitions(ArgumentSet& arguments, const InputContext& context) override {
        arguments.append(this->definition(context, ArgumentDefinition::Kind::positional));
    }
};

} // namespace argumentparser
