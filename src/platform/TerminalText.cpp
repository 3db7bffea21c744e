#include "platform/TerminalText.h"

#include <utf8proc.h>

namespace platform {

namespace {

bool isControl(char32_t scalar) {
    return scalar < 0x20 || (scalar >= 0x7F && scalar <= 0x9F);
}

/// The property Bidi_Control, and the separators of lines and paragraphs.
bool isUnseen(char32_t scalar) {
    return scalar == 0x061C || scalar == 0x200E || scalar == 0x200F || (scalar >= 0x2028 && scalar <= 0x202E) ||
           (scalar >= 0x2066 && scalar <= 0x2069);
}

std::string writtenOut(char32_t scalar) {
    if (scalar < 0x80) {
        return {'^', static_cast<char>(scalar ^ 0x40U)};
    }
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "<U+";
    for (int shift = 12; shift >= 0; shift -= 4) {
        text += digits[scalar >> static_cast<unsigned>(shift) & 0xFU];
    }
    return text + ">";
}

template <class Stays>
std::string shown(std::string_view text, Stays stays) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        utf8proc_int32_t value = -1;
        const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                             static_cast<utf8proc_ssize_t>(text.size()), &value);
        const std::string_view bytes = text.substr(0, length > 0 ? static_cast<std::size_t>(length) : 1);
        const auto scalar = static_cast<char32_t>(value);
        if (value < 0) {
            result += "\xEF\xBF\xBD";
        } else if (!stays(scalar) && (isControl(scalar) || isUnseen(scalar))) {
            result += writtenOut(scalar);
        } else {
            result += bytes;
        }
        text.remove_prefix(bytes.size());
    }
    return result;
}

} // namespace

std::string terminalText(std::string_view text) {
    return shown(text, [](char32_t scalar) { return scalar == U'\n' || scalar == U'\t'; });
}

std::string terminalLine(std::string_view text) {
    return shown(text, [](char32_t) { return false; });
}

} // namespace platform
