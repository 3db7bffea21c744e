// A named input with a value.
#pragma once

#include "ArgumentParser/ValueInput.h"

namespace argumentparser {

template <class Element>
struct OptionTraits {
    NameSpecification names = {longName()};
    std::optional<ParsingStrategy> parsing = {}; ///< Of a list: `scanningForValue`, else `nextValue`.
    Transform<Element> transform = {};
    std::optional<CompletionKind> completion = {};
};

/// `T` is a value type, an optional one (which need not be given) or a vector (which may be given repeatedly).
template <class T>
class Option final : public ValueInput<T> {
public:
    using Element = typename ValueInput<T>::Element;

    /// `key` is the declared identifier, from which the name derives. Required, unless `T` is optional.
    Option(ParsableArguments& owner, std::string_view key, const ArgumentHelp& help, OptionTraits<Element> traits = {})
        : ValueInput<T>(owner, key, std::nullopt, help, valueTraits(traits)), names_(std::move(traits.names)) {}
    /// With a default.
    Option(ParsableArguments& owner, std::string_view key, T initial, const ArgumentHelp& help,
           OptionTraits<Element> traits = {})
        : ValueInput<T>(owner, key, std::move(initial), help, valueTraits(traits)), names_(std::move(traits.names)) {}

    void addDefinitions(ArgumentSet& arguments, const InputContext& context) const override {
        ArgumentDefinition definition = this->definition(context);
        definition.kind = ArgumentDefinition::Named{names_.names(this->key())};
        arguments.append(std::move(definition));
    }

private:
    static ValueTraits<Element> valueTraits(const OptionTraits<Element>& traits) {
        constexpr auto usual = ValueShape<T>::isList ? ParsingStrategy::scanningForValue : ParsingStrategy::nextValue;
        return {traits.parsing.value_or(usual), traits.transform, traits.completion};
    }

    NameSpecification names_;
};

} // namespace argumentparser
