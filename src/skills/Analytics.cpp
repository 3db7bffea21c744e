// `analytics`: how skills are used, of all skills or of one. What the service would refuse is refused before it is
// asked, and each shape has options of its own.
#include <algorithm>

#include "core/inputs/Checks.h"
#include "core/inputs/ReportingChecks.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "platform/text/Text.h"
#include "skills/SkillCommands.h"

namespace orvane {

namespace {

using OptionalText = Option<std::optional<std::string>>;
using OptionalInteger = Option<std::optional<Integer>>;

void validateName(const Argument<std::optional<std::string>>& name) {
    if (!name) {
        return;
    }
    const std::string_view trimmed = platform::trimmed(*name);
    if (trimmed.empty()) {
        throw ValidationError{"skill-name must not be empty."};
    }
    if (platform::characterCount(trimmed) > 200) {
        throw ValidationError{"skill-name must be at most 200 characters."};
    }
}

/// Whether `text` is a date in form; which days there are is the service's business.
bool isLocalDay(std::string_view text) {
    constexpr std::string_view form = "dddd-dd-dd";
    return std::ranges::equal(text, form, [](char character, char expected) {
        return expected == '-' ? character == '-' : character >= '0' && character <= '9';
    });
}

void validateLocalDay(std::string_view word, const OptionalText& day) {
    if (day && !isLocalDay(*day)) {
        throw ValidationError{std::string(word) + " must be a yyyy-mm-dd local day."};
    }
}

void validateBetween(std::string_view word, const OptionalInteger& number, Integer minimum, Integer maximum) {
    if (number) {
        requireBetween(word, *number, minimum, maximum);
    }
}

void validateTeam(const OptionalText& team) {
    if (team && platform::characterCount(*team) > 256) {
        throw ValidationError{"team must be at most 256 characters."};
    }
}

bool isSourceKind(std::string_view text) {
    constexpr std::string_view characters = "abcdefghijklmnopqrstuvwxyz0123456789_";
    return !text.empty() && text.size() <= 128 && text.front() >= 'a' && text.front() <= 'z' &&
           text.find_first_not_of(characters) == std::string_view::npos;
}

void validateSourceKind(const OptionalText& kind) {
    if (kind && !isSourceKind(*kind)) {
        throw ValidationError{"source-kind must start with a lowercase letter and contain only lowercase letters, "
                              "digits, or underscores."};
    }
}

/// A cursor is measured without the white space at its ends, and sent with it.
void validateCursor(std::string_view word, const OptionalText& cursor, std::size_t maximum) {
    const std::size_t length = cursor ? platform::characterCount(platform::trimmed(*cursor)) : 1;
    if (length < 1 || length > maximum) {
        throw ValidationError{std::string(word) + " must contain between 1 and " + std::to_string(maximum) +
                              " characters."};
    }
}

struct SkillAnalytics final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "analytics",
                .abstract = "Print skill usage, invocation, and success analytics as JSON.",
                .discussion = "Without a skill name, prints the all-skills overview with offset-paginated skills and "
                              "people lists. With a skill name, prints that skill's dashboard with cursor-paginated "
                              "recent invocations. Both shapes share the reporting window, timezone, granularity, "
                              "team, and source-kind options."};
    }

    Argument<std::optional<std::string>> skillName{
        *this, "skill-name", "Skill name from its SKILL.md frontmatter. Omit for the all-skills overview."};
    OptionalText since{*this, "since",
                       "First local day of the reporting window, yyyy-mm-dd. Defaults to 29 days before --until."};
    OptionalText until{*this, "until", "Last local day of the reporting window, yyyy-mm-dd. Defaults to today."};
    OptionalText timezone{*this, "timezone",
                          "IANA timezone used to interpret --since and --until. Defaults to the device timezone."};
    Option<std::string> granularity{*this, "granularity", "day", granularityHelp, offering(granularities)};
    OptionalText team{*this, "team", "Team ID to report instead of personal usage. Team admin access is required."};
    OptionalText sourceKind{*this, "source-kind", "Restrict to one source kind, e.g. claude_code_chat or codex_chat."};
    OptionalInteger skillLimit{*this, "skill-limit", "Overview only: number of skills to return (max 100)."};
    OptionalInteger skillOffset{*this, "skill-offset", "Overview only: offset into the skills list."};
    OptionalInteger trendSkillLimit{*this, "trend-skill-limit",
                                    "Overview only: number of top skills to include in trend series (max 10)."};
    OptionalInteger recentLimit{*this, "recent-limit",
                                "Per-skill only: number of recent invocations to return (max 100)."};
    OptionalText recentCursor{*this, "recent-cursor",
                              "Per-skill only: cursor from a previous response's recentUses.nextCursor."};
    OptionalInteger feedbackLimit{*this, "feedback-limit",
                                  "Per-skill only: number of feedback submissions to return (max 100)."};
    OptionalText feedbackCursor{*this, "feedback-cursor",
                                "Per-skill only: cursor from a previous response's feedback.nextCursor."};
    OptionalInteger peopleLimit{*this, "people-limit", "Number of people to return (max 100)."};
    OptionalInteger peopleOffset{*this, "people-offset", "Offset into the people list."};

    void validate() const override {
        validateName(skillName);
        validateGranularity(*granularity);
        if (timezone) {
            validateTimeZone(*timezone);
        }
        validateLocalDay("since", since);
        validateLocalDay("until", until);
        validateBetween("skill-limit", skillLimit, 1, 100);
        validateBetween("recent-limit", recentLimit, 1, 100);
        validateBetween("feedback-limit", feedbackLimit, 1, 100);
        validateBetween("people-limit", peopleLimit, 1, 100);
        validateBetween("skill-offset", skillOffset, 0, 10000);
        validateBetween("people-offset", peopleOffset, 0, 10000);
        validateBetween("trend-skill-limit", trendSkillLimit, 1, 10);
        validateTeam(team);
        validateSourceKind(sourceKind);
        validateCursor("recent-cursor", recentCursor, 2048);
        validateCursor("feedback-cursor", feedbackCursor, 32768);
        validateShape();
    }

    void run() const override {
        QueryItems items;
        items.add("granularity", granularity);
        if (skillName) {
            items.add("skillName", platform::trimmed(*skillName));
        }
        items.addIfGiven("since", since)
            .addIfGiven("until", until)
            .addIfGiven("timezone", timezone)
            .addIfGiven("teamId", team)
            .addIfGiven("sourceKind", sourceKind)
            .addIfGiven("skillLimit", skillLimit)
            .addIfGiven("skillOffset", skillOffset)
            .addIfGiven("trendSkillLimit", trendSkillLimit)
            .addIfGiven("recentLimit", recentLimit)
            .addIfGiven("recentCursor", recentCursor)
            .addIfGiven("feedbackLimit", feedbackLimit)
            .addIfGiven("feedbackCursor", feedbackCursor)
            .addIfGiven("peopleLimit", peopleLimit)
            .addIfGiven("peopleOffset", peopleOffset);
        passOnGet(buildQueryPath("/api/skill/analytics", items));
    }

private:
    void validateShape() const {
        if (skillName) {
            validateNone({skillLimit, skillOffset, trendSkillLimit},
                         "skill-limit, skill-offset, and trend-skill-limit apply only to the overview; omit the skill "
                         "name.");
        } else {
            validateNone({recentLimit, recentCursor, feedbackLimit, feedbackCursor},
                         "recent-limit, recent-cursor, feedback-limit, and feedback-cursor apply only to one skill; "
                         "pass a skill name.");
        }
    }
};

} // namespace

CommandType skillAnalyticsCommand() {
    return CommandType::of<SkillAnalytics>();
}

} // namespace orvane
