// A named input without a value: a plain switch, a switch with an opposite, a counter, or a family of which one member
// is chosen.
#pragma once

#include "ArgumentParser/ArgumentHelp.h"
#include "ArgumentParser/DecodedInput.h"
#include "ArgumentParser/ExpressibleByArgument.h"

namespace argumentparser {

/// How the two names of a switch and its opposite come about.
enum class FlagInversion {
    prefixedNo,            ///< "--verbose", "--no-verbose"
    prefixedEnableDisable, ///< "--enable-verbose", "--disable-verbose"
};

/// What becomes of two different values on one command line.
enum class FlagExclusivity {
    exclusive, ///< An error.
    chooseFirst,
    chooseLast,
};

struct FlagSettings {
    NameSpecification names = {longName()};
    FlagExclusivity exclusivity = FlagExclusivity::exclusive; ///< Of switches with an opposite, and of families.
};

/// `T` is `bool` or an optional one, `int` for a counter, or a closed set's enumeration or an optional one.
template <class T>
class Flag final : public DecodedInput<T> {
public:
    using Element = typename ValueShape<T>::Element;

    static constexpr bool isSwitch = std::same_as<Element, bool>;
    static constexpr bool isCounter = std::same_as<T, int>;
    static_assert(isSwitch || isCounter || ClosedSetMember<Element>);

    /// A plain switch, off unless given; a counter, which starts at 0; or a family, of which one member is required
    /// unless `T` is optional.
    Flag(ParsableArguments& owner, std::string_view key, const ArgumentHelp& help,
         FlagSettings settings = {}) requires(!std::same_as<T, std::optional<bool>>)
        : Flag(owner, key, implicitDefault(), std::nullopt, help, std::move(settings)) {}
    /// With a default.
    Flag(ParsableArguments& owner, std::string_view key, T initial, const ArgumentHelp& help,
         FlagSettings settings = {}) requires(!std::same_as<T, std::optional<bool>>)
        : Flag(owner, key, std::optional<T>(std::move(initial)), std::nullopt, help, std::move(settings)) {}
    /// A switch with an opposite. One of them is required unless `T` is optional.
    Flag(ParsableArguments& owner, std::string_view key, FlagInversion inversion, const ArgumentHelp& help,
         FlagSettings settings = {}) requires(isSwitch)
        : Flag(owner, key, std::optional<T>(), inversion, help, std::move(settings)) {}
    Flag(ParsableArguments& owner, std::string_view key, FlagInversion inversion, bool initial,
         const ArgumentHelp& help, FlagSettings settings = {}) requires(isSwitch)
        : Flag(owner, key, std::optional<T>(initial), inversion, help, std::move(settings)) {}

    void addDefinitions(ArgumentSet& arguments, const InputContext& context) const override {
        const InputKey key = context.key(this->key());
        if constexpr (isCounter) {
            arguments.append(counter(context, key));
        } else if constexpr (isSwitch) {
            if (!inversion_) {
                arguments.append(member(context, key, Element(true), names_.names(this->key())));
                return;
            }
            const bool isPrefixedNo = *inversion_ == FlagInversion::prefixedNo;
            arguments.append(
                member(context, key, Element(true),
                       isPrefixedNo ? names_.names(this->key()) : names_.prefixedNames("enable", this->key(), true)));
            arguments.append(member(context, key, Element(false),
                                    names_.prefixedNames(isPrefixedNo ? "no" : "disable", this->key(), false)));
        } else {
            for (const auto& [value, text] : ClosedSet<Element>::members) {
                ArgumentDefinition definition = member(context, key, value, familyNames(value, text));
                if constexpr (requires(Element member) { ClosedSet<Element>::describe(member); }) {
                    definition.help.abstract = ClosedSet<Element>::describe(value);
                }
                arguments.append(std::move(definition));
            }
        }
    }

private:
    Flag(ParsableArguments& owner, std::string_view key, std::optional<T> initial,
         std::optional<FlagInversion> inversion, const ArgumentHelp& help, FlagSettings settings)
        : DecodedInput<T>(owner, key, std::move(initial), help), names_(std::move(settings.names)),
          inversion_(inversion), exclusivity_(settings.exclusivity) {}

    static std::optional<T> implicitDefault() {
        if constexpr (std::same_as<T, bool> || isCounter) {
            return T();
        } else {
            return std::nullopt;
        }
    }

    static std::vector<Name> familyNames(Element value, std::string_view text) {
        if constexpr (requires { ClosedSet<Element>::flagNames(value); }) {
            return ClosedSet<Element>::flagNames(value).names(text);
        } else {
            return NameSpecification{longName()}.names(text);
        }
    }

    ArgumentDefinition definition(const InputContext& context, const InputKey& key, std::vector<Name> names) const {
        ArgumentDefinition definition = this->declaredDefinition(context, key, isCounter, defaultValueText());
        definition.kind = ArgumentDefinition::Named{std::move(names)};
        definition.help.isComposite = inversion_.has_value() || !(isSwitch || isCounter);
        return definition;
    }

    ArgumentDefinition counter(const InputContext& context, const InputKey& key) const {
        ArgumentDefinition result = definition(context, key, names_.names(this->key()));
        result.update =
            ArgumentDefinition::NullaryUpdate([key](const InputOrigin& origin, const Name&, ParsedValues& values) {
                const ParsedValues::Element* count = values.find(key);
                values.set(key, count == nullptr ? 1 : std::any_cast<int>(count->value) + 1, origin);
            });
        return result;
    }

    /// The flag that chooses `value`.
    ArgumentDefinition member(const InputContext& context, const InputKey& key, Element value,
                              std::vector<Name> names) const {
        ArgumentDefinition result = definition(context, key, std::move(names));
        result.update = ArgumentDefinition::NullaryUpdate(
            [this, key, value](const InputOrigin& origin, const Name&, ParsedValues& values) {
                const ParsedValues::Element* previous = values.find(key);
                const bool isFirst = previous == nullptr || previous->inputOrigin.isDefaultValue();
                const bool differs = !isFirst && std::any_cast<Element>(previous->value) != value;
                if (differs && exclusivity_ == FlagExclusivity::exclusive) {
                    throw ParserError(DuplicateExclusiveValues{previous->inputOrigin, origin});
                }
                if (differs && exclusivity_ == FlagExclusivity::chooseFirst) {
                    values.addOrigin(key, origin);
                } else {
                    values.set(key, value, origin);
                }
            });
        return result;
    }

    /// A switch that is off by default, like a counter at 0, goes without saying.
    std::string defaultValueText() const {
        const std::optional<T>& initial = this->declaredDefault();
        if (!initial || (!inversion_ && (isSwitch || isCounter) && *initial == T())) {
            return {};
        }
        if constexpr (ValueShape<T>::isOptional) {
            return *initial ? ArgumentValue<Element>::defaultValueDescription(**initial) : std::string();
        } else {
            return ArgumentValue<Element>::defaultValueDescription(*initial);
        }
    }

    NameSpecification names_;
    std::optional<FlagInversion> inversion_;
    FlagExclusivity exclusivity_;
};

} // namespace argumentparser
