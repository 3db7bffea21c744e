// `feedback`: a report about a skill, for those who keep it. All checks are made while the command runs.
#include "core/inputs/TextInput.h"
#include "core/service/ServiceClient.h"
#include "platform/files/Streams.h"
#include "platform/text/Text.h"
#include "skills/SkillCommands.h"

namespace orvane {

namespace {

std::string_view requireTrimmed(std::string_view text, const char* refusal) {
    const std::string_view trimmed = platform::trimmed(text);
    if (trimmed.empty()) {
        throw ValidationError{refusal};
    }
    return trimmed;
}

struct SkillFeedback final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "feedback", .abstract = "Submit Markdown feedback about a skill."};
    }

    Argument<std::string> skillName{*this, "skill-name", "The skill name from its SKILL.md frontmatter."};
    Argument<std::optional<std::string>> markdown{*this, "markdown",
                                                  "Markdown feedback. Omit when piping the report on stdin."};
    Option<std::optional<std::string>> skillNamespace{*this, "namespace", "The skill namespace, when it has one."};

    void run() const override {
        JsonBody body;
        body.set("skillName", requireTrimmed(*skillName, "skill-name must not be empty."));
        body.set("markdown", requireReport(markdown, "Provide Markdown feedback as an argument or pipe it on stdin."));
        if (skillNamespace) {
            body.set("skillNamespace", requireTrimmed(*skillNamespace, "namespace must not be empty when provided."));
        }
        failOnErrorStatus(servicePostJSON("/api/skill/feedback", std::move(body)));
        platform::writeStandardOutput("Skill feedback submitted.\n");
    }
};

} // namespace

CommandType skillFeedbackCommand() {
    return CommandType::of<SkillFeedback>();
}

} // namespace orvane
