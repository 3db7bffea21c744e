// What options and positional arguments share: reading a text of the command line as a value.
#pragma once

#include <new>
#include <type_traits>

#include "ArgumentParser/ArgumentHelp.h"
#include "ArgumentParser/ExpressibleByArgument.h"
#include "ArgumentParser/FilePath.h"
#include "ArgumentParser/declaration/DecodedInput.h"

namespace argumentparser {

/// Reads a value from its text in a declaration's own way. What it throws reaches the user. A type that is not
/// ExpressibleByArgument has no other way to be read, so that its declaration must give one.
template <class Element>
class Transform {
public:
    using Function = Element (*)(std::string_view);

    // GCC 12 can't compile a defaulted one. NOLINTNEXTLINE(modernize-use-equals-default)
    Transform() requires(ExpressibleByArgument<Element>) {}
    template <std::convertible_to<Function> Callable>
    Transform(Callable function) : function_(function) {}

    explicit operator bool() const { return function_ != nullptr; }
    Element operator()(std::string_view text) const { return function_(text); }

private:
    Function function_ = nullptr;
};

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

    void record(const ArgumentDefinition& definition, const Occurrence& occurrence) override {
        if constexpr (Shape::isList) {
            this->append(read(definition, occurrence));
        } else {
            this->setValue(read(definition, occurrence));
        }
    }

    std::string defaultValueText() const override {
        std::string text;
        if constexpr (ExpressibleByArgument<Element>) {
            const std::optional<T>& initial = this->value();
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

    std::vector<std::string_view> allValueStrings() const override {
        if constexpr (ExpressibleByArgument<Element>) {
            return ArgumentValue<Element>::allValueStrings();
        } else {
            return {};
        }
    }

    ValueDescriptions allValueDescriptions() const override {
        if constexpr (ExpressibleByArgument<Element>) {
            return ArgumentValue<Element>::allValueDescriptions();
        } else {
            return {};
        }
    }

    CompletionKind completion() const override {
        if (settings_.completion) {
            return *settings_.completion;
        }
        if constexpr (ExpressibleByArgument<Element>) {
            return ArgumentValue<Element>::defaultCompletionKind();
        } else {
            return {};
        }
    }

protected:
    ValueReadingInput(ParsableArguments& owner, std::string_view key, std::optional<T> initial,
                      const ArgumentHelp& help, ValueSettings<Element> settings)
        : DecodedInput<T>(owner, key, std::move(initial), help), settings_(std::move(settings)) {}
    ~ValueReadingInput() = default;

    ArgumentDefinition definition(const InputContext& context, ArgumentDefinition::Kind kind) {
        ArgumentDefinition definition = this->declaredDefinition(context);
        definition.kind = kind;
        definition.parsingStrategy = settings_.parsing.value_or(ParsingStrategy::nextValue);
        return definition;
    }

private:
    /// Only a file's name is taken byte for byte.
    Element read(const ArgumentDefinition& definition, const Occurrence& occurrence) const {
        if constexpr (!std::same_as<Element, FilePath>) {
            if (!platform::isValidUtf8(occurrence.value)) {
                return readText(definition, occurrence, platform::repairedUtf8(occurrence.value));
            }
        }
        return readText(definition, occurrence, occurrence.value);
    }

    Element readText(const ArgumentDefinition& definition, const Occurrence& occurrence, std::string_view text) const {
        std::exception_ptr failure;
        if (settings_.transform) {
            try {
                return settings_.transform(text);
            } catch (const std::bad_alloc&) {
                throw;
            } catch (...) {
                failure = std::current_exception();
            }
        } else if constexpr (ExpressibleByArgument<Element>) {
            if (std::optional<Element> value = ArgumentValue<Element>::read(text)) {
                return *std::move(value);
            }
        }
        throw ParserError(
            UnableToParseValue{occurrence.name != nullptr ? std::optional(*occurrence.name) : std::nullopt,
                               std::string(text), definition.key, failure});
    }

    ValueSettings<Element> settings_;
};

} // namespace argumentparser
