#include "core/output/SingleLine.h"

#include <algorithm>

#include "platform/text/Text.h"

namespace orvane {

std::string foldedLine(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char byte) { return byte == '\n' || byte == '\r' || byte == '\t'; }, ' ');
    return line;
}

std::string singleLine(std::string_view text, std::size_t limit) {
    // What is folded is white space before and after.
    std::string line = foldedLine(platform::trimmed(text));
    // A text of that many bytes has no more characters.
    if (line.size() <= limit || platform::characterCount(line) <= limit) {
        return line;
    }
    const std::string_view kept = platform::firstCharacters(line, limit - 1);
    return std::string(platform::trimmedAtEnd(kept)) + "…";
}

} // namespace orvane
