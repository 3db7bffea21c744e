// The account and what surrounds the library: who is signed in, what was used, who else has what, images of contexts,
// and what the user has to say.
#pragma once

#include "ArgumentParser/CommandType.h"

namespace orvane {

argumentparser::CommandType statusCommand();
argumentparser::CommandType whoamiCommand();
argumentparser::CommandType analyticsCommand();
argumentparser::CommandType feedbackCommand();
argumentparser::CommandType sharingCommand();
argumentparser::CommandType assetCommand();
argumentparser::CommandType modalityCommand();

} // namespace orvane
