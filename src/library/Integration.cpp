// `integration`: the services that content comes from, the user's own and those shared by teams.
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "library/Library.h"

namespace orvane {

namespace {

struct IntegrationList final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "list", .abstract = "List integrations with team and owner provenance."};
    }

    Option<std::optional<std::string>> platform{
        *this, "platform", "Filter by provider platform, e.g. claude_code, codex, obsidian, local_folder."};
    Option<std::optional<std::string>> status{*this, "status",
                                              "Filter by integration status, e.g. active, remote, team_remote."};
    Option<std::optional<std::string>> teamId{*this, "team-id", "Filter to integrations shared through one team ID."};

    void run() const override {
        passOnGet(buildQueryPath(
            "/api/integrations",
            QueryItems().addIfGiven("platform", platform).addIfGiven("status", status).addIfGiven("teamId", teamId)));
    }
};

struct Integration final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "integration",
            .abstract = "Inspect connected and team-shared integrations.",
            .ungroupedSubcommands = {CommandType::of<IntegrationList>()},
            .defaultSubcommand = CommandType::of<IntegrationList>(),
        };
    }
};

} // namespace

CommandType integrationCommand() {
    return CommandType::of<Integration>();
}

} // namespace orvane
