// `suggestion`: edits and new skills that the application proposes. Its refusals are passed on as they came, for the
// machine word in them is what an agent reads.
#include "core/service/Answers.h"
#include "skills/SkillCommands.h"

namespace orvane {

namespace {

constexpr std::string_view suggestionsPath = "/api/skill/suggestion";
constexpr std::chrono::seconds applicationTimeout{120};

void printSuggestionResponse(ServiceRequest request) {
    passOn(std::move(request), EmptyAnswer::line, Refusal::passedOn);
}

std::string suggestionPath(const std::string& id) {
    return std::string(suggestionsPath) + "/" + id;
}

void checkSuggestionId(std::string_view id) {
    constexpr std::string_view form = "update-0123456789abcdef";
    constexpr std::size_t digits = form.find('0');
    const bool hasWord = id.starts_with("update-") || id.starts_with("create-");
    if (!hasWord || id.size() != form.size() || id.find_first_not_of("0123456789abcdef", digits) != id.npos) {
        throw ValidationError{"suggestion-id must be update- or create- followed by 16 lowercase hex characters."};
    }
}

struct SkillSuggestionLs final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "ls",
                .abstract = "List skill suggestions as JSON: update (edit a skill you own) or create (a new skill)."};
    }

    void run() const override { printSuggestionResponse({.method = "GET", .path = std::string(suggestionsPath)}); }
};

struct SkillSuggestionShow final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "show", .abstract = "Show one skill suggestion's detail as JSON."};
    }

    Argument<std::string> suggestionId{*this, "suggestion-id",
                                       "Suggestion ID from `skill suggestion ls`, e.g. update-0123456789abcdef."};

    void validate() const override { checkSuggestionId(*suggestionId); }

    void run() const override { printSuggestionResponse({.method = "GET", .path = suggestionPath(suggestionId)}); }
};

struct SkillSuggestionApply final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "apply",
                .abstract = "Apply an update suggestion's changes to its skill. Requires Editor access.",
                .discussion = "Only update suggestions can be applied. The backend refuses a suggestion whose skill "
                              "changed since it was made (stale_suggestion) rather than overwriting that edit."};
    }

    Argument<std::string> suggestionId{
        *this, "suggestion-id", "Update suggestion ID from `skill suggestion ls`, e.g. update-0123456789abcdef."};

    void validate() const override { checkSuggestionId(*suggestionId); }

    void run() const override {
        printSuggestionResponse({.method = "POST",
                                 .path = suggestionPath(suggestionId) + "/apply",
                                 .json = "{}",
                                 .timeout = applicationTimeout});
    }
};

struct SkillSuggestion final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "suggestion",
            .abstract = "List, inspect, and apply suggested skill edits and new skills.",
            .ungroupedSubcommands = {CommandType::of<SkillSuggestionLs>(), CommandType::of<SkillSuggestionShow>(),
                                     CommandType::of<SkillSuggestionApply>()},
        };
    }
};

} // namespace

CommandType skillSuggestionCommand() {
    return CommandType::of<SkillSuggestion>();
}

} // namespace orvane
