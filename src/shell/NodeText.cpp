#include "shell/NodeText.h"

#include <algorithm>

#include "core/Answers.h"
#include "core/CLIError.h"
#include "core/SingleLine.h"
#include "core/Style.h"
#include "platform/Streams.h"
#include "platform/Text.h"
#include "shell/NodeRecord.h"

namespace orvane {

namespace {

using platform::JsonObject;

CLIError directoryError(const JsonObject& node, std::string_view verb, const std::string& id) {
    std::string message(verb);
    message.append(": ").append(singleLine(node.text("name").value_or(id))).append(": is a directory");
    if (const auto kind = node.text("kind")) {
        message.append(" (kind ").append(foldedLine(*kind)).append(")");
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
    const auto append = [&](std::string_view part, Style style) {
        if (!part.empty()) {
            line += (line.empty() ? "" : "  ") + ansiStyled(part, style);
        }
    };
    append(platform::lowercased(textOrEmpty(node, "id")), Style::cyan);
    append(textOrEmpty(node, "kind"), Style::dim);
    append(ownerLabel(node.object("sourceOwner")), Style::green);
    append(updatedLabel(node), Style::dim);
    append(singleLine(textOrEmpty(node, "name"), nameLimit), Style::bold);
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

/// Prints `pieces` below `header`, all at once. What a terminal must not obey is written out there.
void printText(std::string header, std::vector<std::string_view> pieces) {
    if (!stdoutIsTerminal()) {
        platform::writeStandardOutput(pieces);
        return;
    }
    for (const std::string_view piece : pieces) {
        header += shownText(piece);
    }
    platform::writeStandardOutput(header);
}

} // namespace

void printNodeText(const std::string& path, std::string_view verb, const std::string& id) {
    const ServiceReply reply = serviceGet(path);
    renderObject(reply, [&](const JsonObject& node) {
        if (isDirectory(node)) {
            throw directoryError(node, verb, id);
        }
        std::string header = nodeHeaderLine(node);
        header += header.empty() ? "" : "\n\n";
        std::vector<std::string_view> text = extractReadText(node.object("read"));
        if (text.empty()) {
            platform::writeStandardOutput({header, reply.data, "\n"});
            return;
        }
        if (!endsInLineFeed(text)) {
            text.push_back("\n");
        }
        printText(std::move(header), std::move(text));
    });
}

void validateLines(Integer lines) {
    if (lines <= 0) {
        throw ValidationError{"lines must be greater than 0."};
    }
}

} // namespace orvane
