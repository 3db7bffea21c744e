#include "shell/NodeText.h"

#include "core/output/SingleLine.h"
#include "core/output/Style.h"
#include "core/service/Answers.h"
#include "core/service/CLIError.h"
#include "platform/files/Streams.h"
#include "platform/text/Text.h"
#include "shell/NodeRecord.h"

namespace orvane {

namespace {

using platform::JsonObject;
using platform::JsonText;

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
    platform::LocalClock clock;
    append(updatedLabel(node, clock), Style::dim);
    append(singleLine(textOrEmpty(node, "name"), nameLimit), Style::bold);
    return line;
}

/// The texts that a read returned: one, or the beginning and the end; none when it returned no text.
std::vector<JsonText> readTexts(const std::optional<JsonObject>& read) {
    if (!read) {
        return {};
    }
    if (const auto content = read->longText("content")) {
        return {*content};
    }
    std::vector<JsonText> texts;
    for (const char* key : {"head", "tail"}) {
        const auto end = read->object(key);
        if (const auto content = end ? end->longText("content") : std::nullopt) {
            texts.push_back(*content);
        }
    }
    return texts;
}

/// Prints a text whose pieces come one by one. They go out together, in a size that does not take much memory. What a
/// terminal must not obey is written out there.
class TextPrinter {
public:
    explicit TextPrinter(std::string header) : pending_(std::move(header)) {}

    void add(std::string_view piece) {
        endsInLineFeed_ = piece.ends_with('\n');
        std::string shown;
        if (stdoutIsTerminal()) {
            piece = shown = shownText(piece);
        }
        if (pending_.size() + piece.size() < pieceSize) {
            pending_ += piece;
        } else {
            flush(piece);
        }
    }

    /// Ends the last line if the text does not.
    void finish() { flush(endsInLineFeed_ ? "" : "\n"); }

private:
    static constexpr std::size_t pieceSize = std::size_t{32} << 10U;

    void flush(std::string_view last) {
        platform::writeStandardOutput({pending_, last});
        pending_.clear();
    }

    std::string pending_;
    bool endsInLineFeed_ = false;
};

void printTexts(std::string header, const std::vector<JsonText>& texts) {
    TextPrinter printer(std::move(header));
    for (const JsonText& text : texts) {
        if (&text != &texts.front()) {
            printer.add("\n\n…\n\n");
        }
        text.forEachPiece([&](std::string_view piece) { printer.add(piece); });
    }
    printer.finish();
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
        const std::vector<JsonText> texts = readTexts(node.object("read"));
        if (texts.empty()) {
            platform::writeStandardOutput(header);
            printRawResponse(reply.data);
        } else {
            printTexts(std::move(header), texts);
        }
    });
}

} // namespace orvane
