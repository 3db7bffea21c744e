#include "core/inputs/Checks.h"

#include <algorithm>

namespace orvane {

namespace {

constexpr Integer maximumLimit = 500;

auto countGiven(std::initializer_list<Given> inputs) {
    return std::count_if(inputs.begin(), inputs.end(), [](Given input) { return input.isGiven; });
}

} // namespace

void validateThat(bool isMet, std::string_view message) {
    if (!isMet) {
        throw ValidationError{std::string(message)};
    }
}

void validateNone(std::initializer_list<Given> inputs, std::string_view message) {
    validateThat(countGiven(inputs) == 0, message);
}

void validateAtMostOne(std::initializer_list<Given> inputs, std::string_view message) {
    validateThat(countGiven(inputs) <= 1, message);
}

void validateExactlyOne(std::initializer_list<Given> inputs, const ChoiceMessages& messages) {
    validateAtMostOne(inputs, messages.several);
    validateThat(countGiven(inputs) > 0, messages.none);
}

void validateExactlyOne(std::initializer_list<Given> inputs, std::string_view message) {
    validateExactlyOne(inputs, {.none = message, .several = message});
}

void requireBetween(std::string_view name, Integer value, Integer minimum, Integer maximum) {
    if (value < minimum || value > maximum) {
        throw ValidationError{std::string(name) + " must be between " + std::to_string(minimum) + " and " +
                              std::to_string(maximum) + "."};
    }
}

void validateLimit(Integer limit) {
    requireBetween("limit", limit, 1, maximumLimit);
}

void validateOffset(Integer offset) {
    validateThat(offset >= 0, "offset must be >= 0.");
}

void validatePage(Integer limit, Integer offset) {
    validateLimit(limit);
    validateOffset(offset);
}

} // namespace orvane
