// The names of the help and version flags that the framework adds to every command.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "ArgumentParser/ArgumentHelp.h"
#include "ArgumentParser/CommandType.h"
#include "ArgumentParser/Name.h"

namespace argumentparser {

inline const Name versionFlagName{Name::Kind::longName, "version"};

/// The help flag's names for the last command of `stack`, short names first; for hidden visibility the names of the
/// flag that shows hidden inputs as well. Empty where the flag is turned off.
std::vector<Name> getHelpNames(const std::vector<CommandType>& stack, ArgumentVisibility visibility);

/// The help flag as messages name it, such as "--help"; nothing where it is turned off.
std::optional<Name> primaryHelpName(const std::vector<CommandType>& stack);

/// The last version on `stack`; empty for none.
std::string_view versionOf(const std::vector<CommandType>& stack);

} // namespace argumentparser
