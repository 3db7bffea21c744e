#include "core/inputs/Identifiers.h"

#include "core/service/CLIError.h"
#include "platform/text/Text.h"

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

void validateUUID(std::string_view text) {
    if (!isUUID(text)) {
        throw ValidationError{"Invalid UUID: " + std::string(text)};
    }
}

void validateUUID(std::string_view text, std::string_view label) {
    if (!isUUID(text)) {
        throw ValidationError{std::string(label) + " must be a UUID."};
    }
}

void requireUUID(std::string_view text, std::string_view what) {
    if (!isUUID(text)) {
        throw CLIError::invalidInput("Invalid " + std::string(what) + ": " + std::string(text));
    }
}

std::string canonicalUUID(std::string_view text, std::string_view label) {
    validateUUID(text, label);
    return platform::lowercased(text);
}

void validateUUIDIfGiven(const std::optional<std::string>& text, std::string_view label, std::string_view what) {
    if (text && !isUUID(*text)) {
        throw ValidationError{std::string(label) + " must be " + std::string(what) + "."};
    }
}

void validateParentIfGiven(const std::optional<std::string>& parent) {
    if (parent && !parent->starts_with("grp_")) {
        validateUUIDIfGiven(parent, "parent", "a UUID or a grp_ group id");
    }
}

void validateSources(const std::vector<std::string>& sources) {
    for (const std::string& source : sources) {
        if (!isUUID(source)) {
            throw ValidationError{"Invalid source UUID: " + source};
        }
    }
}

} // namespace orvane
