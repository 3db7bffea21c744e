#include "core/inputs/Checks.h"

#include <algorithm>

namespace orvane {

namespace {

constexpr Integer maximumLimit = 500;

auto countGiven(std::initializer_list<Given> inputs) {
    return std::count_if(inputs.begin(), inputs.end(), [](Given input) { return input.isGiven; });
}

[[noreturn]] void refuse(std::string_view message) {
    throw ValidationError{std::string(message)};
}

} // namespace

void validateNone(std::initializer_list<Given> inputs, std::string_view message) {
    if (countGiven(inputs) > 0) {
        refuse(message);
    }
}

void validateAtMostOne(std::initializer_list<Given> inputs, std::string_view message) {
    if (countGiven(inputs) > 1) {
        refuse(message);
    }
}

void validateExactlyOne(std::initializer_list<Given> inputs, const ChoiceMessages& messages) {
    validateAtMostOne(inputs, messages.several);
    if (countGiven(inputs) == 0) {
        refuse(messages.none);
    }
}

void validateExactlyOne(std::initializer_list<Given> inputs, std::string_view message) {
    validateExactlyOne(inputs, {.none = message, .several = message});
}

void requireBetween(std::string_view name, Integer value, Integer minimum, Integer maximum) {
    if (value < minimum || value > maximum) {
        refuse(std::string(name) + " must be between " + std::to_string(minimum) + " and " + std::to_string(maximum) +
               ".");
    }
}

void validateLimit(Integer limit) {
    requireBetween("limit", limit, 1, maximumLimit);
}

void validateOffset(Integer offset) {
    if (offset < 0) {
        refuse("offset must be >= 0.");
    }
}

void validatePage(Integer limit, Integer offset) {
    validateLimit(limit);
    validateOffset(offset);
}

} // namespace orvane
