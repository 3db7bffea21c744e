// `feedback`: a report to the makers of the application.
#include "core/inputs/TextInput.h"
#include "core/service/Answers.h"
#include "extras/Extras.h"
#include "platform/files/Streams.h"

namespace orvane {

namespace {

enum class FeedbackCategoryOption { bug, featureRequest, general };

constexpr ClosedSet<FeedbackCategoryOption, 3> closedSet(FeedbackCategoryOption) {
    using enum FeedbackCategoryOption;
    return {{{bug, "bug"}, {featureRequest, "feature_request"}, {general, "general"}}};
}

struct Feedback final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "feedback", .abstract = "Submit Markdown or text product feedback."};
    }

    Argument<std::optional<std::string>> message{*this, "message",
                                                 "Markdown or text feedback. Omit when piping the report on stdin."};
    Option<FeedbackCategoryOption> category{*this, "category", FeedbackCategoryOption::bug,
                                            "Feedback category: bug, feature_request, or general."};

    void run() const override {
        JsonBody body;
        body.set("category", category)
            .set("message", requireReport(message, "Provide feedback text as an argument or pipe it on stdin."));
        failOnErrorStatus(servicePostJSON("/api/feedback", std::move(body)));
        platform::writeStandardOutput("Feedback submitted.\n");
    }
};

} // namespace

CommandType feedbackCommand() {
    return CommandType::of<Feedback>();
}

} // namespace orvane
