#include "Roff.h"

#include "platform/text/Text.h"

namespace manual {

std::string escaped(std::string_view text) {
    std::string result;
    for (const char byte : text) {
        switch (byte) {
        case '\\':
            result += "\\e";
            break;
        case '-':
            result += "\\-";
            break;
        case '\'':
            result += "\\(aq";
            break;
        case '"':
            result += "\\(dq";
            break;
        case '`':
            result += "\\(ga";
            break;
        case '^':
            result += "\\(ha";
            break;
        case '~':
            result += "\\(ti";
            break;
        case '.':
            // At the start of a line it would begin a request.
            result += result.empty() || result.back() == '\n' ? "\\&." : ".";
            break;
        default:
            result += byte;
        }
    }
    return result;
}

std::string bold(std::string_view text) {
    return "\\fB" + escaped(text) + "\\fR";
}

std::string italic(std::string_view text) {
    return "\\fI" + escaped(text) + "\\fR";
}

std::string paragraphs(std::string_view text) {
    std::string result;
    std::string_view separator = ".PP\n";
    for (const std::string_view line : platform::split(text, '\n')) {
        if (line.empty()) {
            separator = ".PP\n";
        } else {
            result.append(separator).append(escaped(line)).append("\n");
            separator = ".br\n";
        }
    }
    return result;
}

} // namespace manual
