// `feedback` and `modality`.
#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string noText = "Provide feedback text as an argument or pipe it on stdin.";

CommandRow reports(Words words, const std::string& category, const std::string& json,
                   Location where = Location::current()) {
    return row(with("feedback", words),
               "POST /api/feedback\n{\"category\":\"" + category + "\",\"message\":\"" + json + "\"}", "no JSON",
               "Feedback submitted.\n", where);
}

void expectNoReport(const Words& words, const Input& input, Location where = Location::current()) {
    expectRow(withInput({.arguments = with("feedback", words),
                         .err = "Error: " + noText +
                                "\nUsage: orvane-cli <subcommand>\n  See 'orvane-cli --help' for more information.\n",
                         .status = 64,
                         .where = where},
                        input));
}

TEST(Feedback, SendsTheArgumentOrElseThePipe) {
    expectRequests({
        reports({"# It\n broke "}, "bug", "# It\\n broke "),
        reports("--category feature_request more", "feature_request", "more"),
        reports("more --category general", "general", "more"),
        withInput(reports("", "bug", "report\\n"), Input::pipe("report\n")),
        withInput(reports("given", "bug", "given"), Input::pipe("piped")),
        withInput(reports("given", "bug", "given"), Input::terminal("typed")),
    });
}

TEST(Feedback, RefusesWhatHasNoText) {
    expectNoReport("", {});
    expectNoReport("", Input::pipe(" \n\u2003"));
    expectNoReport("", Input::pipe("\xFF"));
    expectNoReport("", Input::terminal("never read"));
    expectNoReport("", Input::closed());
    expectNoReport({"  "}, Input::pipe("piped"));
    expectNoReport({""}, Input::pipe("piped"));
    expectRefused("feedback x --category featureRequest",
                  "The value 'featureRequest' is invalid for '--category <category>'. Please provide one of 'bug', "
                  "'feature_request' or 'general'.",
                  "--category <category>");
}

TEST(Modality, SetsOrClearsTheCorrection) {
    const std::string request = "PUT /api/slices/modality/7f1b103c-df15-42b0-aab4-77d26415479c\n";
    std::vector<CommandRow> rows{requestRow("modality " + id + " clear", request + R"({"modality":null})")};
    for (const std::string word : {"invalid", "stale", "hypothetical", "misattributed", "ironic"}) {
        rows.push_back(requestRow("modality " + id + " " + word, request + "{\"modality\":\"" + word + "\"}"));
    }
    expectRequests(rows);
    expectRefused("modality x stale", "slice-id must be a UUID.");
    expectRefused("modality " + id + " text",
                  "The value 'text' is invalid for '<modality>'. Please provide one of the following:\n  - 'invalid'\n"
                  "  - 'stale'\n  - 'hypothetical'\n  - 'misattributed'\n  - 'ironic'\n  - 'clear'",
                  "<modality>");
    expectMissing("modality " + id, "<modality>");
}

} // namespace
