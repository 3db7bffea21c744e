// A named input without a value: a plain switch, a switch with an opposite, a counter, or a family of which one member
// is chosen.
#pragma once

#include "ArgumentParser/ArgumentHelp.h"
#include "ArgumentParser/ExpressibleByArgument.h"
#include "ArgumentParser/declaration/DecodedInput.h"

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
    static constexpr bool isFamily = !isSwitch && !isCounter;
    static_assert(!isFamily || ClosedSetMember<Element>, "A flag is a switch, a counter or one of a closed set.");

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

    void addDefinitions(ArgumentSet& arguments, const InputContext& context) override {
        if constexpr (isFamily) {
            for (std::size_t i = 0; i < membersOf<Element>.size(); ++i) {
                const auto& [value, text] = membersOf<Element>[i];
                ArgumentDefinition definition = this->definition(context, familyNames(value, text), i);
                if constexpr (requires(Element member) { describe(member); }) {
                    definition.help.abstract = describe(value);
                }
                arguments.append(std::move(definition));
            }
        } else if (!inversion_) {
            arguments.append(definition(context, names_.names(this->key()), onMember));
        } else {
            const bool isPrefixedNo = *inversion_ == FlagInversion::prefixedNo;
            arguments.append(definition(
                context, isPrefixedNo ? names_.names(this->key()) : names_.prefixedNames("enable", this->key(), true),
                onMember));
            arguments.append(definition(
                context, names_.prefixedNames(isPrefixedNo ? "no" : "disable", this->key(), false), offMember));
        }
    }

    void record(const ArgumentDefinition& definition, const Occurrence& occurrence) override {
        if constexpr (isCounter) {
            this->setValue(this->get() + 1);
        } else {
            choose(memberValue(definition.member), occurrence);
        }
    }

    /// A switch that is off by default, like a counter at 0, goes without saying.
    std::string defaultValueText() const override {
        const std::optional<T>& initial = this->value();
        if (!initial || (!inversion_ && !isFamily && *initial == T())) {
            return {};
        }
        if constexpr (ValueShape<T>::isOptional) {
            return *initial ? ArgumentValue<Element>::defaultValueDescription(**initial) : std::string();
        } else {
            return ArgumentValue<Element>::defaultValueDescription(*initial);
        }
    }

private:
    Flag(ParsableArguments& owner, std::string_view key, std::optional<T> initial,
         std::optional<FlagInversion> inversion, const ArgumentHelp& help, FlagSettings settings)
        : DecodedInput<T>(owner, key, std::move(initial), help), names_(std::move(settings.names)),
          inversion_(inversion), exclusivity_(settings.exclusivity) {}

    static constexpr std::size_t offMember = 0;
    static constexpr std::size_t onMember = 1;

    static std::optional<T> implicitDefault() {
        if constexpr (std::same_as<T, bool> || isCounter) {
            return T();
        } else {
            return std::nullopt;
        }
    }

    static std::vector<Name> familyNames(Element value, std::string_view text) {
        if constexpr (requires { flagNames(value); }) {
            return flagNames(value).names(text);
        } else {
            return NameSpecification{longName()}.names(text);
        }
    }

    ArgumentDefinition definition(const InputContext& context, std::vector<Name> names, std::size_t member) {
        ArgumentDefinition definition = this->declaredDefinition(context);
        definition.names = std::move(names);
        definition.isRepeating = isCounter;
        definition.isComposite = inversion_.has_value() || isFamily;
        definition.member = member;
        return definition;
    }

    static Element memberValue(std::size_t member) {
        if constexpr (isFamily) {
            return membersOf<Element>[member].first;
        } else {
            return member == onMember;
        }
    }

    void choose(Element value, const Occurrence& occurrence) {
        const auto location = [&] { return FlagLocation{std::string(occurrence.originalText), occurrence.subIndex}; };
        if (!first_) {
            first_ = location();
        } else if (this->get() != T(value)) {
            if (exclusivity_ == FlagExclusivity::exclusive) {
                throw ParserError(DuplicateExclusiveValues{*first_, location()});
            }
            if (exclusivity_ == FlagExclusivity::chooseFirst) {
                return;
            }
        }
        this->setValue(value);
    }

    NameSpecification names_;
    std::optional<FlagInversion> inversion_;
    FlagExclusivity exclusivity_;
    std::optional<FlagLocation> first_; ///< Of those given.
};

} // namespace argumentparser
