// What options and positional arguments share: reading a text of the command line as a value.
#pragma once

#include "ArgumentParser/ArgumentHelp.h"
#include "ArgumentParser/DecodedInput.h"
#include "ArgumentParser/ExpressibleByArgument.h"

namespace argumentparser {

/// Reads a value from its text in a declaration's own way. What it throws reaches the user.
template <class Element>
using Transform = std::function<Element(std::string_view)>;

/// The parts of a declaration that most inputs leave as they are.
template <class Element>
struct ValueSettings {
    std::optional<ParsingStrategy> parsing = {};
    Transform<Element> transform = {};
    std::optional<CompletionKind> completion = {};
};

template <class T>
class ValueReadingInput : public DecodedInput<T> {
public:
    using Shape = ValueShape<T>;
    using Element = typename Shape::Element;

protected:
    ValueReadingInput(ParsableArguments& owner, std::string_view key, std::optional<T> initial,
                      const ArgumentHelp& help, ValueSettings<Element> settings)
        : DecodedInput<T>(owner, key, std::move(initial), help), settings_(std::move(settings)) {}
    ~ValueReadingInput() = default;

    ArgumentDefinition definition(const InputContext& context) const {
        const InputKey key = context.key(this->key());
        ArgumentDefinition definition = this->declaredDefinition(context, key, Shape::isList, defaultValueText());
        if constexpr (ExpressibleByArgument<Element>) {
            definition.help.allValueStrings = ArgumentValue<Element>::allValueStrings();
            definition.completion = ArgumentValue<Element>::defaultCompletionKind();
        }
        if (settings_.completion) {
            definition.completion = *settings_.completion;
        }
        definition.parsingStrategy = settings_.parsing.value_or(ParsingStrategy::nextValue);
        definition.update = ArgumentDefinition::UnaryUpdate(
            [this, key](const InputOrigin& origin, const Name* name, std::string_view text, ParsedValues& values) {
                if constexpr (Shape::isList) {
                    values.append<Element>(key, read(origin, name, text, key), origin);
                } else {
                    values.set(key, read(origin, name, text, key), origin);
                }
            });
        return definition;
    }

private:
    Element read(const InputOrigin& origin, const Name* name, std::string_view text, const InputKey& key) const {
        UnableToParseValue failure{origin, name ? std::optional(*name) : std::nullopt, std::string(text), key, nullptr};
        if (settings_.transform) {
            try {
                return settings_.transform(text);
            } catch (...) {
                failure.originalError = std::current_exception();
                throw ParserError(std::move(failure));
            }
        }
        if constexpr (ExpressibleByArgument<Element>) {
            if (std::optional<Element> value = ArgumentValue<Element>::read(text)) {
                return *std::move(value);
            }
        }
        throw ParserError(std::move(failure));
    }

    std::string defaultValueText() const {
        std::string text;
        if constexpr (ExpressibleByArgument<Element>) {
            const std::optional<T>& initial = this->declaredDefault();
            if (!initial) {
                return text;
            }
            if constexpr (Shape::isList) {
                std::vector<std::string> elements;
                for (const Element& element : *initial) {
                    elements.push_back(ArgumentValue<Element>::defaultValueDescription(element));
                }
                text = platform::joined(elements, ", ");
            } else if constexpr (Shape::isOptional) {
                if (*initial) {
                    text = ArgumentValue<Element>::defaultValueDescription(**initial);
                }
            } else {
                text = ArgumentValue<Element>::defaultValueDescription(*initial);
            }
        }
        return text;
    }

    ValueSettings<Element> settings_;
};

} // namespace argumentparser
