// The help and version flags that the framework adds to every command: their names and definitions.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "ArgumentParser/declaration/ArgumentDefinition.h"
#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

/// The help flag's names for the command at `node`, short names first; for hidden visibility the names of the flag that
/// shows hidden inputs as well. Empty where the flag is turned off.
std::vector<Name> helpFlagNames(const Tree& node, ArgumentVisibility visibility);

/// The help flag as messages name it, such as "--help"; nothing where it is turned off.
std::optional<Name> primaryHelpFlagName(const Tree& node);

/// The version of the command at `node`, else of the nearest ancestor that has one; empty for none, and no flag.
std::string_view versionOf(const Tree& node);
bool isVersionFlagName(const Name& name);

/// Of the flag that asks for a description for other tools; it exists for every command, and no help shows it.
bool isDumpHelpFlagName(const Name& name);

/// The definitions of the flags that exist for the command at `node`: the version flag, the help flag, and the hidden
/// one that shows hidden inputs as well. They only carry names and texts.
std::vector<ArgumentDefinition> builtInDefinitions(const Tree& node);

} // namespace argumentparser
