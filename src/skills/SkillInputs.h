// Inputs that several commands of skills take.
#pragma once

#include <string>
#include <string_view>

#include "core/CommandModel.h"

namespace orvane {

inline constexpr const char* skillIdHelp = "Skill ID.";
inline constexpr const char* skillItemIdHelp = "Skill or bundle ID."; ///< An item is either of them.

/// The path of the item with that id, which reaches the service in lower case. Throws ValidationError
/// "<label> must be a UUID.".
std::string skillItemPath(std::string_view id, std::string_view label = "id");

/// A file's whole text, byte for byte: nothing is expanded in its path and nothing trimmed. Throws ValidationError
/// with `refusal` when it can't be read or is not valid UTF-8.
std::string readSkillText(const FilePath& path, const std::string& refusal);

} // namespace orvane
