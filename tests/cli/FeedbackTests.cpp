// `feedback` and `modality`.
#include "support/CommandRow.h"

using namespace testsupport;

namespace {

CommandRow reports(Words words, const std::string& category, const std::string& json,
                   Location where = Location::current()) {
    return row(with("feedback", words),
               "POST /api/feedback\n{\"category\":\"" + category + "\",\"message\":\"" + json + "\"}", "no JSON",
               "Feedback submitted.\n", where);
}

void expectNoReport(const Words& words, const Input& input, Location where = Location::current()) {
    expectRefusedByRun(with("feedback", words), "Provide feedback text as an argument or pipe it on stdin.",
                       {.input = input}, where);
}

TEST(Feedback, SendsTheArgumentOrElseThePipe) {
    expectRows({
        reports({"# It\n broke "}, "bug", "# It\\n broke "),
        reports("--category feature_request more", "feature_request", "more"),
        reports("more --category general", "general", "more"),
        withInput(reports("", "bug", "report\\n"), Input::pipe("report\n")),
        withInput(reports("given", "bug", "given"), Input::pipe("piped")),
    });
}

TEST(Feedback, RefusesWhatHasNoText) {
    expectNoReport("", {});
    expectNoReport("", Input::pipe(" \n\u2003"));
    expectNoReport("", Input::pipe("\xFF"));
    expectNoReport("", Input::terminal("never read"));
    expectNoReport({"  "}, Input::pipe("piped"));
}

TEST(Modality, SetsOrClearsTheCorrection) {
    const std::string request = "PUT /api/slices/modality/" + lowerId + "\n";
    expectRows({
        requestRow("modality " + id + " clear", request + R"({"modality":null})"),
        requestRow("modality " + id + " stale", request + R"({"modality":"stale"})"),
    });
    expectRefused("modality x stale", "slice-id must be a UUID.");
}

} // namespace
