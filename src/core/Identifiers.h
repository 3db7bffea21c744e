// The forms of ids that can be told before any request.
#pragma once

#include <string_view>

namespace orvane {

/// Whether `text` is a UUID: hexadecimal digits of either case in groups of 8, 4, 4, 4 and 12 between hyphens.
bool isUUID(std::string_view text);

/// Throws CLIError "Invalid UUID: …" unless `text` is a UUID. For checks made while a command runs.
void requireUUID(std::string_view text);

/// The same as a ValidationError. For checks made before anything runs.
void validateUUID(std::string_view text);

} // namespace orvane
