#include "shell/Grep.h"

#include "core/DisplayDates.h"
#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "platform/Streams.h"
#include "platform/Text.h"

namespace orvane {

namespace {

using platform::JsonDocument;
using platform::JsonObject;

/// The repositories of all `--repo` values, joined by commas; empty for none.
std::string reposValue(const std::vector<std::string>& values) {
    std::vector<std::string> repos;
    for (const std::string& value : values) {
        for (const std::string_view piece : platform::split(value, ',')) {
            if (std::string repo = normalizeRepoArgument(piece); !repo.empty()) {
                repos.push_back(std::move(repo));
            }
        }
    }
    return platform::joined(repos, ",");
}

std::string bodyOf(const JsonObject& result) {
    if (const auto body = result.text("body")) {
        return std::string(*body);
    }
    std::vector<std::string> texts;
    for (const JsonObject& chunk : result.objects("chunks").value_or(std::vector<JsonObject>())) {
        if (const auto text = chunk.text("text")) {
            texts.emplace_back(*text);
        }
    }
    return platform::joined(texts, "\n");
}

std::string sessionLine(const JsonObject& document) {
    std::vector<std::string> parts;
    for (const char* key : {"initiated", "executionMode"}) {
        if (const std::string_view text = textOrEmpty(document, key); !text.empty()) {
            parts.push_back(std::string(key) + ": " + std::string(text));
        }
    }
    return parts.empty() ? std::string() : "    " + platform::joined(parts, " · ") + "\n";
}

/// What a result shows, with an empty line behind it.
std::string resultBlock(const JsonObject& result) {
    constexpr std::size_t titleLimit = 100;
    constexpr std::string_view indent = "    ";
    const JsonObject document = result.object("document").value_or(result);
    const auto id = result.text("nodeId");
    const auto title = result.text("title");
    std::string block = ansiStyled(id ? *id : textOrEmpty(document, "id"), "36") + "  " +
                        ansiStyled(textOrEmpty(document, "kind"), "2");
    if (const std::string owner = ownerLabel(document.object("sourceOwner")); !owner.empty()) {
        block += "  " + ansiStyled(owner, "32");
    }
    if (const std::string date = formatISODisplayDate(textOrEmpty(document, "originalUpdatedAt")); !date.empty()) {
        block += "  " + ansiStyled(date, "2");
    }
    block += "  " + ansiStyled(singleLine(title ? *title : textOrEmpty(document, "name"), titleLimit), "1") + "\n";
    if (const std::string_view thread = textOrEmpty(result, "threadId"); !thread.empty()) {
        block.append(indent).append("threadId: ").append(thread).append("\n");
    }
    if (const std::string_view slice = textOrEmpty(result, "sliceId"); !slice.empty()) {
        block.append(indent).append("sliceId: ").append(slice).append(" · modality: ");
        block.append(result.text("modality").value_or("null")).append("\n");
    }
    block += sessionLine(document);
    const std::string body = bodyOf(result);
    for (const std::string_view line : platform::split(body, '\n')) {
        block.append(indent).append(line).append("\n");
    }
    return block + "\n";
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

std::string renderedResults(const JsonObject& response, const std::vector<JsonObject>& results) {
    std::string text;
    for (const JsonObject& result : results) {
        text += resultBlock(result);
    }
    if (const auto token = response.text("nextPageToken")) {
        text.append("Next page: repeat with --page-token '").append(*token).append("' and the same parameters.\n");
    }
    return text + relevanceBoundNote(response);
}

} // namespace

CommandConfiguration Grep::configuration() {
    return {.commandName = "grep",
            .abstract = "Search node content (hybrid by default). Pass a parent UUID to scope to a subtree."};
}

void Grep::validate() const {
    if (scope && !isUUID(*scope)) {
        throw ValidationError{"scope must be a UUID."};
    }
    validateLimit(limit);
}

void Grep::run() const {
    const std::string repos = reposValue(repo);
    const QueryItems items = QueryItems()
                                 .add("q", *pattern)
                                 .add("limit", limit)
                                 .addIfGiven("sender", sender)
                                 .addIfGiven("recipient", recipient)
                                 .addIfGiven("to", to)
                                 .addIfGiven("cc", cc)
                                 .addIfGiven("bcc", bcc)
                                 .addIfGiven("subject", subject)
                                 .addIfGiven("pageToken", pageToken)
                                 .addIfGiven("parentId", scope)
                                 .addIfGiven("kind", type)
                                 .addIfGiven("since", since)
                                 .addIfGiven("until", until)
                                 .addIfGiven("owner", owner)
                                 .addIfSet("literal", literal)
                                 .addIfSet("repos", !repos.empty(), repos)
                                 .addIfGiven("initiated", initiated)
                                 .add("cliVerb", "grep");
    const ServiceReply reply = serviceGet(buildQueryPath("/api/nodes/search", items), standardTimeout);
    failOnErrorStatus(reply);
    const auto document = json ? std::nullopt : JsonDocument::parseObject(reply.data);
    const auto results = document ? document->object().objects("results") : std::nullopt;
    if (results) {
        platform::writeStandardOutput(renderedResults(document->object(), *results));
    } else {
        printRawResponse(reply.data);
    }
}

} // namespace orvane
