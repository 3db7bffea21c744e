// The forms of ids that can be told before any request.
#pragma once

#include <string>
#include <string_view>

#include "core/CommandModel.h"

namespace orvane {

/// Whether `text` is a UUID: hexadecimal digits of either case in groups of 8, 4, 4, 4 and 12 between hyphens.
bool isUUID(std::string_view text);

/// Throws ValidationError "Invalid UUID: …" unless `text` is a UUID. For an id that a command reads.
void validateUUID(std::string_view text);

/// The same as "<label> must be a UUID.", for an id among other inputs.
void validateUUID(std::string_view text, std::string_view label);

/// The same as a CLIError, for checks made while a command runs: "Invalid <what>: …".
void requireUUID(std::string_view text, std::string_view what = "UUID");

/// `text` in the form that the service itself gives, with lower-case digits. Throws ValidationError
/// "<label> must be a UUID." when it is none.
std::string canonicalUUID(std::string_view text, std::string_view label);

/// Throws ValidationError "<label> must be <what>." when an id is given that is no UUID.
void validateUUIDIfGiven(const std::optional<std::string>& text, std::string_view label,
                         std::string_view what = "a UUID");

/// The parent of a listing: a UUID or the id of a group, which begins with "grp_". Throws ValidationError.
void validateParentIfGiven(const std::optional<std::string>& parent);

/// The documents that a context was made from. Throws ValidationError for the first that is no UUID.
void validateSources(const std::vector<std::string>& sources);

} // namespace orvane
