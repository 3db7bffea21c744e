// The children of `skill`.
#pragma once

#include "ArgumentParser/CommandType.h"

namespace orvane {

// What the library holds.
argumentparser::CommandType skillLsCommand();
argumentparser::CommandType skillStatCommand();
argumentparser::CommandType skillCreateCommand();
argumentparser::CommandType skillImportCommand();
argumentparser::CommandType skillBundleCommand();
argumentparser::CommandType skillRenameCommand();
argumentparser::CommandType skillMoveCommand();
argumentparser::CommandType skillRemoveCommand();

// What is installed on this device.
argumentparser::CommandType skillInstallCommand();
argumentparser::CommandType skillUninstallCommand();
argumentparser::CommandType skillInstalledCommand();
argumentparser::CommandType skillRefreshCommand();

// What is known about skills, and what is said of them.
argumentparser::CommandType skillAnalyticsCommand();
argumentparser::CommandType skillSuggestionCommand();
argumentparser::CommandType skillFeedbackCommand();

// A skill's package.
argumentparser::CommandType skillFileCommand();
argumentparser::CommandType skillValidateCommand();

} // namespace orvane
