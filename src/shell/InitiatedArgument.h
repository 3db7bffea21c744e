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

} // namespace orvane

template <>
struct argumentparser::ClosedSet<orvane::InitiatedArgument> {
    static constexpr std::pair<orvane::InitiatedArgument, std::string_view> members[]{
        {orvane::InitiatedArgument::human, "human"},
        {orvane::InitiatedArgument::agent, "agent"},
        {orvane::InitiatedArgument::automation, "automation"},
    };
};
