#include "core/output/Style.h"

#include "core/output/SingleLine.h"
#include "platform/files/Streams.h"
#include "platform/text/TerminalText.h"

namespace orvane {

namespace {

std::string_view codeOf(Style style) {
    switch (style) {
    case Style::plain:
        return "0";
    case Style::bold:
        return "1";
    case Style::dim:
        return "2";
    case Style::red:
        return "31";
    case Style::green:
        return "32";
    case Style::yellow:
        return "33";
    case Style::magenta:
        return "35";
    case Style::cyan:
        return "36";
    case Style::boldYellow:
        return "1;33";
    }
    return {};
}

std::string escapeSequence(Style style) {
    return "\x1B[" + std::string(codeOf(style)) + "m";
}

} // namespace

bool stdoutIsTerminal() {
    static const bool isTerminal = platform::isTerminal(platform::Stream::output);
    return isTerminal;
}

std::string withStyle(std::string_view text, Style style) {
    return escapeSequence(style).append(text).append(escapeSequence(Style::plain));
}

std::string ansiStyled(std::string_view text, Style style) {
    std::string line = shownLine(text);
    if (style == Style::plain || !stdoutIsTerminal()) {
        return line;
    }
    return withStyle(line, style);
}

std::string shownLine(std::string_view text) {
    std::string line = foldedLine(text);
    if (!stdoutIsTerminal()) {
        return line;
    }
    return platform::terminalLine(line);
}

std::string shownText(std::string_view text) {
    return stdoutIsTerminal() ? platform::terminalText(text) : std::string(text);
}

} // namespace orvane
