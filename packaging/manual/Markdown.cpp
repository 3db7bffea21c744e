#include "Markdown.h"

#include "Roff.h"
#include "platform/text/Text.h"

namespace manual {

namespace {

constexpr std::string_view blockIndent = "    ";
constexpr std::string_view prompt = "    $ ";

/// What is typed is not broken at its blanks.
std::string unbroken(std::string_view text) {
    std::string result;
    for (const char byte : text) {
        result += byte == ' ' ? "\\ " : std::string(1, byte);
    }
    return result;
}

std::string withBoldWords(std::string_view text) {
    std::string result;
    bool isBold = false;
    for (const std::string_view part : platform::split(text, '`')) {
        result += isBold ? unbroken(bold(part)) : escaped(part);
        isBold = !isBold;
    }
    return result;
}

/// An entry of a list, whose further lines follow as lines of text.
std::string entry(std::string_view text) {
    const std::size_t tagEnd = text.find("`: ");
    if (text.starts_with('`') && tagEnd == text.find('`', 1)) {
        return ".TP\n" + withBoldWords(text.substr(0, tagEnd + 1)) + "\n" + withBoldWords(text.substr(tagEnd + 3));
    }
    return ".IP \\(bu 2\n" + withBoldWords(text);
}

bool goesOn(std::string_view command) {
    return command.ends_with('\\') || command.ends_with('|') || command.ends_with("&&");
}

} // namespace

std::string roffOf(std::string_view text) {
    std::string result;
    bool isBlock = false;
    bool isCommand = false;
    std::string_view previous;
    for (const std::string_view line : platform::split(text, '\n')) {
        const bool isBehindGap = previous.empty();
        const bool isCommandLine = line.starts_with(prompt) || (isCommand && goesOn(previous));
        previous = line;
        if (line.empty()) {
            continue;
        }
        if (isBlock != line.starts_with(blockIndent)) {
            isBlock = !isBlock;
            result += isBlock ? ".IP \"\" 4\n.nf\n" : ".fi\n";
        } else if (isBlock && isBehindGap) {
            result += "\n";
        }
        isCommand = isCommandLine;
        if (isBlock) {
            result += isCommand ? bold(line.substr(blockIndent.size())) : escaped(line.substr(blockIndent.size()));
        } else if (line.starts_with("# ")) {
            result += ".SH " + escaped(line.substr(2));
        } else if (line.starts_with("- ")) {
            result += entry(line.substr(2));
        } else {
            result += (isBehindGap ? ".PP\n" : "") + withBoldWords(line.substr(line.find_first_not_of(' ')));
        }
        result += "\n";
    }
    return result + (isBlock ? ".fi\n" : "");
}

bool showsCommand(std::string_view text) {
    return text.find("\n" + std::string(prompt)) != std::string_view::npos;
}

} // namespace manual
