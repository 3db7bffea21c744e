#include "shell/NodeReading.h"

#include <algorithm>

#include "core/CLIError.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "platform/Streams.h"
#include "platform/Text.h"
#include "shell/Vocabulary.h"

namespace orvane {

namespace {

using platform::JsonObject;

bool isDirectory(const JsonObject& node) {
    if (const auto isContainer = node.boolean("isContainer")) {
        return *isContainer;
    }
    const auto kind = node.text("kind");
    return kind && std::find(containerKinds.begin(), containerKinds.end(), *kind) != containerKinds.end();
}

CLIError directoryError(const JsonObject& node, std::string_view verb, const std::string& id) {
    std::string message(verb);
    message.append(": ")
        .append(singleLine(node.text("name").value_or(id), std::string_view::npos))
        .append(": is a directory");
    if (const auto kind = node.text("kind")) {
        message.append(" (kind ").append(*kind).append(")");
    }
    return CLIError::invalidInput(message + ". Use `ls` to list its contents.");
}

/// A line about the node for a person at a terminal; empty anywhere else.
std::string nodeHeaderLine(const JsonObject& node) {
    constexpr std::size_t nameLimit = 100;
    std::string line;
    if (!stdoutIsTerminal()) {
        return line;
    }
    const auto append = [&](const std::string& part, std::string_view code) {
        if (!part.empty()) {
            line += (line.empty() ? "" : "  ") + ansiStyled(part, code);
        }
    };
    append(platform::lowercased(textOrEmpty(node, "id")), "36");
    append(std::string(textOrEmpty(node, "kind")), "2");
    append(ownerLabel(node.object("sourceOwner")), "32");
    append(updatedLabel(node), "2");
    append(singleLine(textOrEmpty(node, "name"), nameLimit), "1");
    return line;
}

/// The pieces of the text that a read returned; none when it returned no text.
std::vector<std::string_view> extractReadText(const std::optional<JsonObject>& read) {
    if (!read) {
        return {};
    }
    if (const auto content = read->text("content")) {
        return {*content};
    }
    std::vector<std::string_view> pieces;
    for (const char* key : {"head", "tail"}) {
        const auto end = read->object(key);
        if (const auto content = end ? end->text("content") : std::nullopt) {
            pieces.push_back(*content);
        }
    }
    if (pieces.size() > 1) {
        pieces.insert(pieces.begin() + 1, "\n\n…\n\n");
    }
    return pieces;
}

bool endsInLineFeed(const std::vector<std::string_view>& pieces) {
    const auto last = std::find_if_not(pieces.rbegin(), pieces.rend(), [](auto piece) { return piece.empty(); });
    return last != pieces.rend() && last->ends_with('\n');
}

} // namespace

std::string nodePath(const std::string& id, const QueryItems& items) {
    return buildQueryPath("/api/nodes/" + id, items);
}

void readNodeText(const std::string& path, std::string_view verb, const std::string& id) {
    const ServiceReply reply = serviceGet(path, standardTimeout);
    failOnErrorStatus(reply);
    renderObject(reply.data, [&](const JsonObject& node) {
        if (isDirectory(node)) {
            throw directoryError(node, verb, id);
        }
        if (const std::string header = nodeHeaderLine(node); !header.empty()) {
            platform::writeStandardOutput(header + "\n\n");
        }
        std::vector<std::string_view> text = extractReadText(node.object("read"));
        if (text.empty()) {
            printRawResponse(reply.data);
            return;
        }
        if (!endsInLineFeed(text)) {
            text.push_back("\n");
        }
        platform::writeStandardOutput(text);
    });
}

} // namespace orvane
