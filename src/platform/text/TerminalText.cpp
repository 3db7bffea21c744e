#include "platform/text/TerminalText.h"

#include <utf8proc.h>

#include "platform/text/ByteScan.h"
#include "platform/text/Text.h"

namespace platform {

namespace {

/// Control characters, the property Bidi_Control, and the separators of lines and paragraphs.
bool steersTerminal(char32_t scalar) {
    return scalar < 0x20 || (scalar >= 0x7F && scalar <= 0x9F) || scalar == 0x061C || scalar == 0x200E ||
           scalar == 0x200F || (scalar >= 0x2028 && scalar <= 0x202E) || (scalar >= 0x2066 && scalar <= 0x2069);
}

std::string fourDigits(char32_t scalar, std::string_view digits) {
    std::string text;
    for (int shift = 12; shift >= 0; shift -= 4) {
        text += digits[scalar >> static_cast<unsigned>(shift) & 0xFU];
    }
    return text;
}

std::string visibleForm(char32_t scalar) {
    if (scalar < 0x80) {
        return {'^', static_cast<char>(scalar ^ 0x40U)};
    }
    return "<U+" + fourDigits(scalar, "0123456789ABCDEF") + ">";
}

/// JSON has no control characters of ASCII in its texts but DEL.
std::string jsonForm(char32_t scalar) {
    if (scalar < 0x20) {
        return scalar == '\r' ? " " : visibleForm(scalar);
    }
    return "\\u" + fourDigits(scalar, "0123456789abcdef");
}

constexpr auto mayNotStandInText = [](auto byte) {
    return (byte < '\t') | ((byte >= '\v') & (byte <= 0x1F)) | (byte >= 0x7F);
};

constexpr auto mayNotStandInLine = [](auto byte) { return (byte < 0x20) | (byte >= 0x7F); };

/// Copies what is harmless in runs. `isSuspicious` is true for every byte that a scalar to be replaced begins with;
/// `formOf` gives what takes its place.
template <class IsSuspicious>
std::string shown(std::string_view text, IsSuspicious isSuspicious, std::string (*formOf)(char32_t) = visibleForm) {
    std::string result;
    result.reserve(text.size());
    std::size_t copied = 0;
    std::size_t position = 0;
    while ((position = findByte(text, position, isSuspicious)) < text.size()) {
        utf8proc_int32_t scalar = -1;
        const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()) + position,
                                             static_cast<utf8proc_ssize_t>(text.size() - position), &scalar);
        const std::size_t end =
            position + (length > 0 ? static_cast<std::size_t>(length) : malformedLength(text.substr(position)));
        if (length <= 0 || steersTerminal(static_cast<char32_t>(scalar))) {
            result.append(text.substr(copied, position - copied));
            result += length <= 0 ? "\xEF\xBF\xBD" : formOf(static_cast<char32_t>(scalar));
            copied = end;
        }
        position = end;
    }
    return result.append(text.substr(copied));
}

} // namespace

std::string terminalText(std::string_view text) {
    return shown(text, mayNotStandInText);
}

std::string terminalLine(std::string_view text) {
    return shown(text, mayNotStandInLine);
}

std::string terminalJson(std::string_view json) {
    return shown(json, mayNotStandInText, jsonForm);
}

} // namespace platform
