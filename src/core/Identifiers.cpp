#include "core/Identifiers.h"

#include "ArgumentParser/CommandExit.h"
#include "core/CLIError.h"

namespace orvane {

bool isUUID(std::string_view text) {
    constexpr std::string_view form = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";
    constexpr std::string_view hexadecimalDigits = "0123456789abcdefABCDEF";
    if (text.size() != form.size()) {
        return false;
    }
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool fits = form[i] == '-' ? text[i] == '-' : hexadecimalDigits.find(text[i]) != std::string_view::npos;
        if (!fits) {
            return false;
        }
    }
    return true;
}

void requireUUID(std::string_view text) {
    if (!isUUID(text)) {
        throw CLIError::invalidInput("Invalid UUID: " + std::string(text));
    }
}

void validateUUID(std::string_view text) {
    if (!isUUID(text)) {
        throw argumentparser::ValidationError{"Invalid UUID: " + std::string(text)};
    }
}

} // namespace orvane
