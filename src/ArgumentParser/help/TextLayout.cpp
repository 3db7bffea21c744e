#include "ArgumentParser/help/TextLayout.h"

#include <cstdlib>

#include "platform/files/Streams.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

std::string indentedLines(const std::vector<std::string_view>& lines, int indent) {
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        text += i == 0 ? "" : "\n";
        if (!lines[i].empty()) {
            text.append(static_cast<std::size_t>(indent), ' ').append(lines[i]);
        }
    }
    return text;
}

} // namespace

std::string wrapped(std::string_view text, int columns, int indent) {
    if (columns <= indent) {
        return {};
    }
    const auto width = static_cast<std::size_t>(columns - indent);
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::string_view window = platform::firstCharacters(text, width);
        std::size_t end = window.rfind('\n');
        if (end == std::string_view::npos && window.size() < text.size()) {
            end = window.rfind(' ');
            if (end == std::string_view::npos) {
                end = text.find_first_of(" \n", window.size());
            }
        }
        for (const std::string_view line : platform::split(text.substr(0, end), '\n')) {
            lines.push_back(line);
        }
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return indentedLines(lines, indent);
}

std::string hangingIndented(std::string_view text, int indent) {
    std::string result;
    for (const char byte : text) {
        result += byte;
        if (byte == '\n') {
            result.append(static_cast<std::size_t>(indent), ' ');
        }
    }
    return result;
}

int screenWidth() {
    constexpr int defaultWidth = 80;
    if (const char* columns = std::getenv("COLUMNS")) {
        if (const auto width = platform::parseNumber<int>(columns); width && *width > 0) {
            return *width;
        }
    }
    const int width = platform::terminalWidth();
    return width > 0 ? width : defaultWidth;
}

} // namespace argumentparser
