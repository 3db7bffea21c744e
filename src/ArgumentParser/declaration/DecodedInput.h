// The value side that all kinds of inputs share: how a decoded input is read.
#pragma once

#include <algorithm>
#include <concepts>
#include <optional>
#include <utility>
#include <vector>

#include "ArgumentParser/ParsableCommand.h"
#include "ArgumentParser/declaration/ConfigurationFailure.h"
#include "ArgumentParser/declaration/ParserError.h"

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

/// One value, perhaps one, or a list of values: nothing nested.
template <class T>
concept InputValue = std::same_as < typename ValueShape<T>::Element,
typename ValueShape<typename ValueShape<T>::Element>::Element > ;

[[noreturn]] inline void undecodedInputFailure() {
    configurationFailure("Can't read a value from a parsable\u00A0argument definition.\n\nAn Option, Flag, Argument, "
                         "OptionGroup or ParentCommand has a value only once its command was decoded from a command "
                         "line, or when it was declared with a default.");
}

/// An input that reads as its value: `limit < 1`, `*owner`, `if (owner)`. Reading a value that was neither decoded nor
/// declared as a default ends the process.
template <class T>
class DecodedInput : public DeclaredInput {
    static_assert(InputValue<T>, "An input has a value type, an optional one or a vector, none inside another.");

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
        : DeclaredInput(owner), key_(key), help_(help), value_(std::move(initial)) {}
    ~DecodedInput() = default;

    std::string_view key() const { return key_; }
    /// The declared default, until something is recorded.
    const std::optional<T>& value() const { return value_; }
    void setValue(T value) { value_ = std::move(value); }
    /// Adds to what was given before; the first element takes the place of a default.
    void append(Element element) requires(Shape::isList) {
        if (!std::exchange(isGiven_, true)) {
            value_.emplace();
        }
        value_->push_back(std::move(element));
    }

    /// What the declaration says, whatever the kind of input.
    ArgumentDefinition declaredDefinition(const InputContext& context) {
        ArgumentDefinition definition{.key = context.key(key_), .help = help_};
        definition.help.visibility = std::max(help_.visibility, context.visibility);
        definition.parentTitle = context.parentTitle;
        definition.isOptional = Shape::isOptional || value_.has_value();
        definition.isRepeating = Shape::isList;
        definition.input = this;
        return definition;
    }

    void decode(const DecodedCommands&, const InputContext& context) override {
        if (value_) {
            return;
        }
        if constexpr (Shape::isOptional) {
            value_.emplace();
        } else {
            throw ParserError(NoValue{context.key(key_)});
        }
    }

private:
    std::string_view key_;
    ArgumentHelp help_;
    std::optional<T> value_;
    bool isGiven_ = false;
};

} // namespace argumentparser
