// `team`: the teams that the account belongs to.
#include "core/service/Answers.h"
#include "library/Library.h"

namespace orvane {

namespace {

struct TeamList final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "list", .abstract = "List teams, members, and shared resources."};
    }

    void run() const override { passOnGet("/api/teams"); }
};

struct Team final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "team",
            .abstract = "Inspect Orvane teams available to this account.",
            .ungroupedSubcommands = {CommandType::of<TeamList>()},
            .defaultSubcommand = CommandType::of<TeamList>(),
        };
    }
};

} // namespace

CommandType teamCommand() {
    return CommandType::of<Team>();
}

} // namespace orvane
