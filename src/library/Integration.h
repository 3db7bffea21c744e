// `integration`: the services that content comes from, the user's own and those shared by teams.
#pragma once

#include "core/CommandModel.h"

namespace orvane {

struct Integration final : ParsableCommand {
    static CommandConfiguration configuration();
};

struct IntegrationList final : ParsableCommand {
    static CommandConfiguration configuration();

    Option<std::optional<std::string>> platform{
        *this, "platform", "Filter by provider platform, e.g. claude_code, codex, obsidian, local_folder."};
    Option<std::optional<std::string>> status{*this, "status",
                                              "Filter by integration status, e.g. active, remote, team_remote."};
    Option<std::optional<std::string>> teamId{*this, "teamId", "Filter to integrations shared through one team ID."};

    void run() const override;
};

} // namespace orvane
