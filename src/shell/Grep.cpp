// `grep`: the search in the content of nodes.
#include "core/inputs/Checks.h"
#include "core/inputs/HelpTexts.h"
#include "core/inputs/Identifiers.h"
#include "core/inputs/TypeGroups.h"
#include "core/output/DisplayDates.h"
#include "core/output/SingleLine.h"
#include "core/output/Style.h"
#include "core/service/Answers.h"
#include "platform/files/Streams.h"
#include "platform/text/Text.h"
#include "shell/EmailFilters.h"
#include "shell/FilterHelp.h"
#include "shell/InitiatedArgument.h"
#include "shell/NodeRecord.h"
#include "shell/RepoArgument.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

using platform::JsonDocument;
using platform::JsonObject;
using platform::JsonText;

constexpr std::string_view indent = "    ";

/// The texts that make up a result's body: the body itself, else its chunks, which stand on lines of their own.
std::vector<JsonText> bodyTexts(const JsonObject& result) {
    if (const auto body = result.longText("body")) {
        return {*body};
    }
    std::vector<JsonText> texts;
    for (const JsonObject& chunk : result.objects("chunks").value_or(std::vector<JsonObject>())) {
        if (const auto text = chunk.longText("text")) {
            texts.push_back(*text);
        }
    }
    return texts;
}

/// Appends what continues a line, with an indent behind each line feed in it.
void appendIndented(std::string& block, std::string_view text) {
    while (true) {
        const std::size_t lineEnd = text.find('\n');
        block.append(text.substr(0, lineEnd));
        if (lineEnd == std::string_view::npos) {
            return;
        }
        block.append("\n").append(indent);
        text.remove_prefix(lineEnd + 1);
    }
}

void appendBody(std::string& block, const JsonObject& result) {
    const std::vector<JsonText> texts = bodyTexts(result);
    block.append(indent);
    for (const JsonText& text : texts) {
        if (&text != &texts.front()) {
            block.append("\n").append(indent);
        }
        text.forEachPiece([&](std::string_view piece) {
            stdoutIsTerminal() ? appendIndented(block, shownText(piece)) : appendIndented(block, piece);
        });
    }
    block += "\n";
}

/// Appends a line of labelled facts; nothing when there are none.
void appendFacts(std::string& block, const std::vector<std::string>& facts) {
    if (!facts.empty()) {
        block.append(indent).append(ansiStyled(platform::joined(facts, " · "), Style::plain)).append("\n");
    }
}

void appendHeadLine(std::string& block, const JsonObject& result, const JsonObject& document,
                    platform::LocalClock& clock) {
    constexpr std::size_t titleLimit = 100;
    const auto id = result.text("nodeId");
    const auto title = result.text("title");
    block += ansiStyled(id ? *id : textOrEmpty(document, "id"), Style::cyan);
    block += "  " + ansiStyled(textOrEmpty(document, "kind"), Style::dim);
    if (const std::string_view owner = ownerLabel(document.object("sourceOwner")); !owner.empty()) {
        block += "  " + ansiStyled(owner, Style::green);
    }
    if (const std::string date = formatISODisplayDate(textOrEmpty(document, "originalUpdatedAt"), clock);
        !date.empty()) {
        block += "  " + ansiStyled(date, Style::dim);
    }
    const std::string line = singleLine(title ? *title : textOrEmpty(document, "name"), titleLimit);
    block += "  " + ansiStyled(line, Style::bold) + "\n";
}

/// Appends what a result shows, with an empty line behind it.
void appendResult(std::string& block, const JsonObject& result, platform::LocalClock& clock) {
    const JsonObject document = result.object("document").value_or(result);
    const auto fact = [](const char* label, std::string_view value) { return label + std::string(value); };
    appendHeadLine(block, result, document, clock);
    if (const std::string_view thread = textOrEmpty(result, "threadId"); !thread.empty()) {
        appendFacts(block, {fact("threadId: ", thread)});
    }
    if (const std::string_view slice = textOrEmpty(result, "sliceId"); !slice.empty()) {
        appendFacts(block, {fact("sliceId: ", slice), fact("modality: ", result.text("modality").value_or("null"))});
    }
    std::vector<std::string> session;
    if (const std::string_view initiated = textOrEmpty(document, "initiated"); !initiated.empty()) {
        session.push_back(fact("initiated: ", initiated));
    }
    if (const std::string_view mode = textOrEmpty(document, "executionMode"); !mode.empty()) {
        session.push_back(fact("executionMode: ", mode));
    }
    appendFacts(block, session);
    appendBody(block, result);
    block += "\n";
}

/// Says that a search stopped at a bound, lest its end be taken for the end of the matches; empty when it did not.
std::string relevanceBoundNote(const JsonObject& response) {
    if (response.boolean("exhaustive") != false) {
        return {};
    }
    const Integer candidates = response.integer("candidateLimit").value_or(0);
    return "Search is relevance-bounded" + (candidates > 0 ? " to " + std::to_string(candidates) + " candidates" : "") +
           "; no page token does not prove there are no additional literal matches.\n";
}

/// Results go out in pieces of this size, in bytes: a page of them may be large, and its pieces are soon there again.
constexpr std::size_t pieceSize = std::size_t{64} << 10U;

void printResults(const JsonObject& response, const std::vector<JsonObject>& results) {
    std::string text;
    platform::LocalClock clock;
    for (const JsonObject& result : results) {
        appendResult(text, result, clock);
        if (text.size() >= pieceSize) {
            platform::writeStandardOutput(text);
            text.clear();
        }
    }
    if (const auto token = response.text("nextPageToken")) {
        text.append("Next page: repeat with --page-token '").append(ansiStyled(*token, Style::plain));
        text.append("' and the same parameters.\n");
    }
    text += relevanceBoundNote(response);
    platform::writeStandardOutput(text);
}

struct Grep final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "grep",
                .abstract = "Search node content (hybrid by default). Pass a parent UUID to scope to a subtree."};
    }

    Argument<std::string> pattern{*this, "pattern", "The search query / pattern."};
    Argument<std::optional<std::string>> scope{*this, "scope",
                                               "Optional parent node or integration-root UUID to search within."};
    Option<std::optional<SearchTypeGroup>> type{*this, "type", typeHelp};
    Option<std::optional<std::string>> since{
        *this, "since", "Only search nodes updated at or after this date (ISO-8601 or yyyy-MM-dd)."};
    Option<std::optional<std::string>> until{
        *this, "until", "Only search nodes updated at or before this date (ISO-8601 or yyyy-MM-dd)."};
    Option<Integer> limit{*this, "limit", 10, searchLimitHelp};
    OptionGroup<EmailSearchFilterOptions> email{*this, "email"};
    Option<std::optional<std::string>> pageToken{*this, "page-token",
                                                 "Continuation from a previous grep; keep other parameters unchanged."};
    Flag<bool> literal{*this,
                       "literal",
                       "Lexical cloud search or contiguous substring matching locally.",
                       {.names = {longName(), customShort("F")}}};
    Option<std::optional<std::string>> owner{*this, "owner", readableOwnerHelp};
    Option<std::vector<std::string>> repo{
        *this,
        "repo",
        {},
        "Narrow to specific git repos (coding-session content only). Pass a repo path (\".\" for the current repo) or "
        "a canonical repoKey like github.com/acme/widgets. Repeatable, or comma-separated."};
    Option<std::optional<InitiatedArgument>> initiated{*this, "initiated", initiatedHelp};
    Flag<bool> json{*this, "json", jsonTableHelp};

    void validate() const override {
        validateUUIDIfGiven(scope, "scope");
        validateLimit(limit);
    }

    void run() const override {
        const std::string path = requestPath();
        if (json) {
            passOnGet(path);
            return;
        }
        const ServiceReply reply = serviceGet(path);
        failOnErrorStatus(reply);
        const auto document = JsonDocument::parseObject(reply.data);
        const auto results = document ? document->object().objects("results") : std::nullopt;
        if (results) {
            printResults(document->object(), *results);
        } else {
            printRawResponse(reply.data);
        }
    }

private:
    std::string requestPath() const {
        const std::string repos = reposValue(*repo);
        return buildQueryPath("/api/nodes/search", QueryItems()
                                                       .add("q", pattern)
                                                       .add("limit", limit)
                                                       .add(emailFilterItems(*email))
                                                       .addIfGiven("pageToken", pageToken)
                                                       .addIfGiven("parentId", scope)
                                                       .addIfGiven("kind", type)
                                                       .addIfGiven("since", since)
                                                       .addIfGiven("until", until)
                                                       .addIfGiven("owner", owner)
                                                       .addIfSet("literal", literal)
                                                       .addIfSet("repos", !repos.empty(), repos)
                                                       .addIfGiven("initiated", initiated)
                                                       .add("cliVerb", "grep"));
    }
};

} // namespace

CommandType grepCommand() {
    return CommandType::of<Grep>();
}

} // namespace orvane
