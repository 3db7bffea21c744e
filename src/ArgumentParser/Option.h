// A named input with a value.
#pragma once

#include "ArgumentParser/declaration/ValueReadingInput.h"

namespace argumentparser {

template <class Element>
struct OptionSettings {
    NameSpecification names = {longName()};
    std::optional<ParsingStrategy> parsing = {}; ///< Of a list: `scanningForValue`, else `nextValue`.
    Transform<Element> transform = {};
    std::optional<CompletionKind> completion = {};
};

/// `T` is a value type, an optional one (which need not be given) or a vector (which may be given repeatedly).
template <class T>
class Option final : public ValueReadingInput<T> {
public:
    using Element = typename ValueReadingInput<T>::Element;

    /// `key` is the long name without its dashes, unless the settings give names of their own. Required, unless `T` is
    /// optional.
    Option(ParsableArguments& owner, std::string_view key, const ArgumentHelp& help,
           OptionSettings<Element> settings = {})
        : ValueReadingInput<T>(owner, key, std::nullopt, help, valueSettings(settings)),
          names_(std::move(settings.names)) {}
    /// With a default.
    Option(ParsableArguments& owner, std::string_view key, T initial, const ArgumentHelp& help,
           OptionSettings<Element> settings = {})
        : ValueReadingInput<T>(owner, key, std::move(initial), help, valueSettings(settings)),
          names_(std::move(settings.names)) {}

    void addDefinitions(ArgumentSet& arguments, const InputContext& context) override {
        ArgumentDefinition definition = this->definition(context, ArgumentDefinition::Kind::option);
        definition.names = names_.names(this->key());
        arguments.append(std::move(definition));
    }

private:
    static ValueSettings<Element> valueSettings(const OptionSettings<Element>& settings) {
        constexpr auto defaultStrategy =
            ValueShape<T>::isList ? ParsingStrategy::scanningForValue : ParsingStrategy::nextValue;
        return {settings.parsing.value_or(defaultStrategy), settings.transform, settings.completion};
    }

    NameSpecification names_;
};

} // namespace argumentparser
