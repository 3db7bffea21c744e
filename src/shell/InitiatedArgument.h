// Who or what started a session.
#pragma once

#include "ArgumentParser/ExpressibleByArgument.h"

namespace orvane {

enum class InitiatedArgument { human, agent, automation };

/// The help of `--initiated` where `--type` can be given as well.
inline constexpr const char* initiatedHelp =
    "Filter sessions by who or what initiated them: human, agent, or automation. Combine with --type transcript (the "
    "default when set) or a conversation --kind such as codex_chat; message kinds are reached through their session "
    "kind.";

constexpr argumentparser::ClosedSet<InitiatedArgument, 3> closedSet(InitiatedArgument) {
    using enum InitiatedArgument;
    return {{{human, "human"}, {agent, "agent"}, {automation, "automation"}}};
}

} // namespace orvane
