// `replace-lines`: a block of whole lines of a context replaced or deleted.
#include <algorithm>

#include "core/inputs/Checks.h"
#include "core/inputs/Identifiers.h"
#include "core/inputs/TextInput.h"
#include "core/output/MutationLine.h"
#include "core/service/Answers.h"
#include "shell/ContextEditRequest.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

/// The number of bytes of the line end at `position`: CR LF, LF or CR; 0 when there is none.
std::size_t lineEndLength(std::string_view text, std::size_t position) {
    if (text.substr(position, 2) == "\r\n") {
        return 2;
    }
    return text[position] == '\n' || text[position] == '\r' ? 1 : 0;
}

/// A file's lines, whatever system's line ends it has; the last line's own is dropped. An empty file has none.
std::vector<std::string> readLines(const FilePath& path) {
    const std::string file = readWholeTextFile(path);
    std::string_view text = file;
    const bool endsLine = text.ends_with('\n') || text.ends_with('\r');
    text.remove_suffix(text.ends_with("\r\n") ? 2 : endsLine ? 1 : 0);
    std::vector<std::string> lines;
    if (text.empty()) {
        return lines;
    }
    std::size_t start = 0;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = lineEndLength(text, i);
        if (length > 0) {
            lines.emplace_back(text.substr(start, i - start));
            start = i + length;
        }
        i += std::max<std::size_t>(length, 1);
    }
    lines.emplace_back(text.substr(start));
    return lines;
}

struct ReplaceLines final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "replace-lines",
                .abstract = "Replace or delete a unique block of complete context lines."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the context to edit."};
    Option<std::vector<std::string>> oldLine{
        *this, "old-line", {}, "An exact existing line. Repeat for a multi-line block."};
    Option<std::optional<FilePath>> oldFile{
        *this, "old-file", "Path containing the exact existing lines. Mutually exclusive with --old-line."};
    Option<std::vector<std::string>> newLine{
        *this, "new-line", {}, "A replacement line. Repeat for a multi-line block."};
    Option<std::optional<FilePath>> newFile{
        *this, "new-file", "Path containing replacement lines. Mutually exclusive with --new-line and --delete."};
    Flag<bool> deleteLines{*this, "delete", "Delete the matched lines, including the correct adjacent separator."};

    void validate() const override {
        validateExactlyOne({oldLine, oldFile}, {.none = "Provide --old-line or --old-file.",
                                                .several = "Cannot use both --old-line and --old-file."});
        validateExactlyOne({newLine, newFile, deleteLines},
                           "Provide exactly one of --new-line, --new-file, or --delete.");
    }

    void run() const override {
        requireUUID(*id);
        const std::vector<std::string> oldLines = oldFile ? readLines(*oldFile) : *oldLine;
        if (oldLines.empty()) {
            throw CLIError::invalidInput("At least one old line is required.");
        }
        // Without new lines the block is deleted.
        const std::vector<std::string> newLines = newFile ? readLines(*newFile) : *newLine;
        JsonBody body;
        body.set("old_lines", oldLines).set("new_lines", newLines);
        renderObject(postContextEdit(*id, std::move(body), "replace-lines"), [&](const platform::JsonObject& edit) {
            printMutationLine({.verb = "edited context",
                               .id = edit.text("contextId"),
                               .detail = deleteLines ? "(deleted complete lines)" : "(replaced complete lines)"});
        });
    }
};

} // namespace

CommandType replaceLinesCommand() {
    return CommandType::of<ReplaceLines>();
}

} // namespace orvane
