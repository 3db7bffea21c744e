// The value types that an input can read from a text of the command line.
//
// A type joins in one of three ways: by a specialisation of ArgumentValue (the types that come with the framework), as
// an enumeration with a ClosedSet, or with a static `fromArgument(std::string_view)` that gives an optional value.
#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "ArgumentParser/CompletionKind.h"
#include "ArgumentParser/declaration/FloatingPoint.h"
#include "platform/text/Text.h"

namespace argumentparser {

/// Pairs of a value's text and its description.
using ValueDescriptions = std::vector<std::pair<std::string_view, std::string_view>>;

/// An enumeration's members with their raw texts, in order of declaration. The set is what the function `closedSet` of
/// the enumeration gives, which stands beside it:
///
///     enum class Size { small, large };
///     constexpr ClosedSet<Size, 2> closedSet(Size) { return {{{Size::small, "small"}, {Size::large, "large"}}}; }
///
/// So may `describe(Size)`, a member's description, and `flagNames(Size)`, its names when it is one of a family of
/// flags.
template <class Value, std::size_t count>
using ClosedSet = std::array<std::pair<Value, std::string_view>, count>;

template <class Value>
concept ClosedSetMember = std::is_enum_v<Value> && requires(Value value) {
    closedSet(value);
};

template <ClosedSetMember Value>
inline constexpr auto membersOf = closedSet(Value());

template <class Value>
concept ReadableFromArgument = requires(std::string_view text) {
    { Value::fromArgument(text) } -> std::same_as<std::optional<Value>>;
};

/// The operations of a value type: `read`, `defaultValueDescription`, `allValueStrings`, `defaultCompletionKind`,
/// `allValueDescriptions`.
template <class Value>
struct ArgumentValue;

template <class Value>
concept ExpressibleByArgument = requires(std::string_view text, const Value& value) {
    { ArgumentValue<Value>::read(text) } -> std::same_as<std::optional<Value>>;
    { ArgumentValue<Value>::defaultValueDescription(value) } -> std::same_as<std::string>;
    { ArgumentValue<Value>::allValueStrings() } -> std::same_as<std::vector<std::string_view>>;
    { ArgumentValue<Value>::defaultCompletionKind() } -> std::same_as<CompletionKind>;
    { ArgumentValue<Value>::allValueDescriptions() } -> std::same_as<ValueDescriptions>;
};

/// What a type without a closed set of values has in common.
struct OpenArgumentValue {
    static std::vector<std::string_view> allValueStrings() { return {}; }
    static CompletionKind defaultCompletionKind() { return {}; }
    static ValueDescriptions allValueDescriptions() { return {}; }
};

template <>
struct ArgumentValue<std::string> : OpenArgumentValue {
    static std::optional<std::string> read(std::string_view text) { return std::string(text); }
    static std::string defaultValueDescription(const std::string& value) { return value; }
};

template <>
struct ArgumentValue<bool> : OpenArgumentValue {
    static std::optional<bool> read(std::string_view text) {
        return text == "true" ? std::optional(true) : text == "false" ? std::optional(false) : std::nullopt;
    }
    static std::string defaultValueDescription(bool value) { return value ? "true" : "false"; }
};

template <class Number>
requires(std::integral<Number> || std::floating_point<Number>) struct ArgumentValue<Number> : OpenArgumentValue {
    static std::optional<Number> read(std::string_view text) {
        if constexpr (std::floating_point<Number>) {
            return floatingPoint<Number>(text);
        } else {
            return platform::parseNumber<Number>(text);
        }
    }
    static std::string defaultValueDescription(Number value) {
        char buffer[64];
        return {buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr};
    }
};

template <ClosedSetMember Value>
struct ArgumentValue<Value> {
    static std::optional<Value> read(std::string_view text) {
        for (const auto& [value, rawText] : membersOf<Value>) {
            if (rawText == text) {
                return value;
            }
        }
        return std::nullopt;
    }
    static std::string defaultValueDescription(Value value) { return std::string(rawText(value)); }
    static std::string_view rawText(Value value) {
        for (const auto& [member, text] : membersOf<Value>) {
            if (member == value) {
                return text;
            }
        }
        return {};
    }
    static std::vector<std::string_view> allValueStrings() {
        std::vector<std::string_view> texts;
        for (const auto& member : membersOf<Value>) {
            texts.push_back(member.second);
        }
        return texts;
    }
    static CompletionKind defaultCompletionKind() { return {CompletionKind::List{allValueStrings()}}; }
    static ValueDescriptions allValueDescriptions() {
        ValueDescriptions descriptions;
        if constexpr (requires(Value value) { describe(value); }) {
            for (const auto& [value, text] : membersOf<Value>) {
                descriptions.emplace_back(text, describe(value));
            }
        }
        return descriptions;
    }
};

/// A type with its own reading. `text()` gives the text of a value; a static `allValueStrings()` may name the values
/// that are known, and a static `defaultCompletionKind()` say what a shell may offer.
template <ReadableFromArgument Value>
struct ArgumentValue<Value> : OpenArgumentValue {
    static std::optional<Value> read(std::string_view text) { return Value::fromArgument(text); }
    static std::string defaultValueDescription(const Value& value) { return std::string(value.text()); }
    static std::vector<std::string_view> allValueStrings() {
        if constexpr (requires { Value::allValueStrings(); }) {
            return Value::allValueStrings();
        } else {
            return {};
        }
    }
    static CompletionKind defaultCompletionKind() {
        if constexpr (requires { Value::defaultCompletionKind(); }) {
            return Value::defaultCompletionKind();
        }
        std::vector<std::string_view> values = allValueStrings();
        return values.empty() ? CompletionKind() : CompletionKind{CompletionKind::List{std::move(values)}};
    }
};

/// The raw text of a closed set's member.
template <ClosedSetMember Value>
std::string_view rawText(Value value) {
    return ArgumentValue<Value>::rawText(value);
}

/// A closed type's tables without the type.
struct ValueTable {
    std::vector<std::string_view> (*allValueStrings)();
    ValueDescriptions (*allValueDescriptions)();
};

template <ExpressibleByArgument Value>
constexpr ValueTable valueTable() {
    return {&ArgumentValue<Value>::allValueStrings, &ArgumentValue<Value>::allValueDescriptions};
}

} // namespace argumentparser
