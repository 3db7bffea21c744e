// The value side that all kinds of inputs share: how a decoded input is read.
#pragma once

#include <algorithm>
#include <any>
#include <optional>
#include <vector>

#include "ArgumentParser/ArgumentDecoder.h"
#include "ArgumentParser/ConfigurationFailure.h"
#include "ArgumentParser/ParserError.h"

namespace argumentparser {

/// Whether an input's type holds one value, perhaps one, or a list, and of what.
template <class T>
struct ValueShape {
    using Element = T;
    static constexpr bool isOptional = false;
    static constexpr bool isList = false;
};
template <class T>
struct ValueShape<std::optional<T>> {
    using Element = T;
    static constexpr bool isOptional = true;
    static constexpr bool isList = false;
};
template <class T>
struct ValueShape<std::vector<T>> {
    using Element = T;
    static constexpr bool isOptional = false;
    static constexpr bool isList = true;
};

[[noreturn]] inline void undecodedInputFailure() {
    configurationFailure("Can't read a value from a parsable\u00A0argument definition.\n\nAn Option, Flag, Argument, "
                         "OptionGroup or ParentCommand has a value only once its command was decoded from a command "
                         "line, or when it was declared with a default.");
}

/// An input that reads as its value: `limit < 1`, `*owner`, `if (owner)`. Reading a value that was neither decoded nor
/// declared as a default ends the process.
template <class T>
class DecodedInput : public DeclaredInput {
public:
    using Shape = ValueShape<T>;
    using Element = typename Shape::Element;

    const T& get() const {
        if (!value_) {
            undecodedInputFailure();
        }
        return *value_;
    }
    operator const T&() const { return get(); }

    /// The value itself; of an optional one what it holds, which must be there.
    const auto& operator*() const {
        if constexpr (Shape::isOptional) {
            return *get();
        } else {
            return get();
        }
    }
    const auto* operator->() const { return &**this; }
    explicit operator bool() const requires(Shape::isOptional) { return get().has_value(); }

protected:
    DecodedInput(ParsableArguments& owner, std::string_view key, std::optional<T> initial, const ArgumentHelp& help)
        : DeclaredInput(owner), key_(key.starts_with('_') ? key.substr(1) : key), default_(initial), help_(help),
          value_(std::move(initial)) {}
    ~DecodedInput() = default;

    std::string_view key() const { return key_; }
    const std::optional<T>& declaredDefault() const { return default_; }
    bool isOptional() const { return Shape::isOptional || default_.has_value(); }

    /// What the declaration says, whatever the kind of input. Its forms and its update are the kind's own.
    ArgumentDefinition declaredDefinition(const InputContext& context, const InputKey& key, bool isRepeating,
                                          std::string defaultValue) const {
        ArgumentDefinition definition;
        definition.help = {
            .isOptional = isOptional(),
            .isRepeating = isRepeating,
            .defaultValue = std::move(defaultValue),
            .keys = {key},
            .allValueStrings = {},
            .abstract = help_.abstract,
            .discussion = help_.discussion,
            .valueName = help_.valueName,
            .visibility = std::max(help_.visibility, context.visibility),
            .parentTitle = context.parentTitle,
        };
        definition.initial = recordDefault(key);
        return definition;
    }

    void decode(ArgumentDecoder& decoder, const InputContext& context) override {
        const InputKey inputKey = context.key(key_);
        if (const std::any* value = decoder.take(inputKey)) {
            if constexpr (Shape::isOptional) {
                value_ = std::any_cast<const Element&>(*value);
            } else {
                value_ = std::any_cast<const T&>(*value);
            }
        } else if constexpr (Shape::isOptional) {
            value_ = T();
        } else {
            throw ParserError(NoValue{inputKey});
        }
    }

private:
    /// Records the declared default. An optional input without one has no value to record.
    std::function<void(ParsedValues&)> recordDefault(const InputKey& key) const {
        if (!default_) {
            return {};
        }
        return [this, key](ParsedValues& values) {
            if constexpr (Shape::isOptional) {
                if (*default_) {
                    values.setDefault(key, **default_);
                }
            } else {
                values.setDefault(key, *default_);
            }
        };
    }

    std::string_view key_;
    std::optional<T> default_;
    ArgumentHelp help_;
    std::optional<T> value_;
};

} // namespace argumentparser
