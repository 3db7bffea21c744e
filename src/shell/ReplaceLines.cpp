#include "shell/ReplaceLines.h"

#include <algorithm>

#include "core/CLIError.h"
#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "core/TextInput.h"
#include "shell/ContextEditing.h"

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
std::vector<std::string> readLines(const std::string& path) {
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

} // namespace

CommandConfiguration ReplaceLines::configuration() {
    return {.commandName = "replace-lines", .abstract = "Replace or delete a unique block of complete context lines."};
}

void ReplaceLines::validate() const {
    if (!oldLine->empty() && oldFile) {
        throw ValidationError{"Cannot use both --old-line and --old-file."};
    }
    if (oldLine->empty() && !oldFile) {
        throw ValidationError{"Provide --old-line or --old-file."};
    }
    const int modes = (newLine->empty() ? 0 : 1) + (newFile ? 1 : 0) + (deleteLines ? 1 : 0);
    if (modes != 1) {
        throw ValidationError{"Provide exactly one of --new-line, --new-file, or --delete."};
    }
}

void ReplaceLines::run() const {
    requireUUID(*id);
    const std::vector<std::string> oldLines = oldFile ? readLines(*oldFile) : *oldLine;
    if (oldLines.empty()) {
        throw CLIError::invalidInput("At least one old line is required.");
    }
    // Without new lines the block is deleted.
    const std::vector<std::string> newLines = newFile ? readLines(*newFile) : *newLine;
    JsonBody body;
    body.set("old_lines", oldLines).set("new_lines", newLines);
    const ServiceReply reply = postContextEdit(*id, std::move(body), "replace-lines");
    renderObject(reply.data, [&](const platform::JsonObject& edit) {
        printMutationLine("edited context", {}, edit.text("contextId"),
                          deleteLines ? "(deleted complete lines)" : "(replaced complete lines)");
    });
}

} // namespace orvane
