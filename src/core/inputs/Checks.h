// Checks of a command line that several commands make. Each throws ValidationError, and is made before anything is
// sent.
#pragma once

#include <initializer_list>
#include <string_view>

#include "core/CommandModel.h"
#include "core/service/CLIError.h"

namespace orvane {

/// Whether an input was given: an optional one a value, a list an element, a flag at all.
struct Given {
    bool isGiven;

    template <class T>
    Given(const argumentparser::DecodedInput<std::optional<T>>& input) : isGiven(input.get().has_value()) {}
    template <class T>
    Given(const argumentparser::DecodedInput<std::vector<T>>& input) : isGiven(!input.get().empty()) {}
    Given(const argumentparser::DecodedInput<bool>& input) : isGiven(input.get()) {}
};

/// Throws with `message` unless the condition is met.
void validateThat(bool isMet, std::string_view message);

void validateNone(std::initializer_list<Given> inputs, std::string_view message);
void validateAtMostOne(std::initializer_list<Given> inputs, std::string_view message);

/// What is said when none of several inputs is given, and when more than one is.
struct ChoiceMessages {
    std::string_view none;
    std::string_view several;
};

void validateExactlyOne(std::initializer_list<Given> inputs, const ChoiceMessages& messages);
void validateExactlyOne(std::initializer_list<Given> inputs, std::string_view message);

/// "<name> must be between <minimum> and <maximum>."
void requireBetween(std::string_view name, Integer value, Integer minimum, Integer maximum);

/// How many nodes or results are asked for: 1 to 500.
void validateLimit(Integer limit);

/// Where a page starts: nowhere below 0.
void validateOffset(Integer offset);

/// The limit and the offset of a page.
void validatePage(Integer limit, Integer offset);

/// Makes checks that a command makes only while it runs: what they refuse fails the run, with status 1 and no usage.
template <class Checks>
void checkWhileRunning(Checks checks) {
    try {
        checks();
    } catch (const ValidationError& refusal) {
        throw CLIError::invalidInput(refusal.message);
    }
}

} // namespace orvane
