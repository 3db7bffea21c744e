#include "core/SingleLine.h"

#include <algorithm>

#include "platform/Text.h"

namespace orvane {

std::string foldedLine(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char byte) { return byte == '\n' || byte == '\r' || byte == '\t'; }, ' ');
    return line;
}

std::string singleLine(std::string_view text, std::size_t limit) {
    const std::string line = foldedLine(text);
    const std::string_view whole = platform::trimmed(line);
    // A text of that many bytes has no more characters.
    if (whole.size() <= limit || platform::characterCount(whole) <= limit) {
        return std::string(whole);
    }
    const std::string_view kept = platform::firstCharacters(whole, limit - 1);
    return std::string(platform::trimmedAtEnd(kept)) + "…";
}

} // namespace orvane
