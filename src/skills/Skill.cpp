// `skill`: the door to the family.
#include "core/CommandModel.h"
#include "skills/SkillCommands.h"
#include "skills/Skills.h"

namespace orvane {

namespace {

struct Skill final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "skill",
            .abstract = "Manage skills and skill bundles.",
            .ungroupedSubcommands =
                {
                    skillLsCommand(),
                    skillStatCommand(),
                    skillCreateCommand(),
                    skillImportCommand(),
                    skillBundleCommand(),
                    skillRenameCommand(),
                    skillMoveCommand(),
                    skillRemoveCommand(),
                    skillInstallCommand(),
                    skillUninstallCommand(),
                    skillInstalledCommand(),
                    skillRefreshCommand(),
                    skillAnalyticsCommand(),
                    skillSuggestionCommand(),
                    skillFeedbackCommand(),
                    skillFileCommand(),
                    skillValidateCommand(),
                },
        };
    }
};

} // namespace

CommandType skillCommand() {
    return CommandType::of<Skill>();
}

} // namespace orvane
