#include "core/Query.h"

#include <algorithm>

namespace orvane {

namespace {

void appendEncoded(std::string& text, std::string_view value) {
    constexpr std::string_view plainPunctuation = "-._~!$'()*,;:@/";
    constexpr std::string_view digits = "0123456789ABCDEF";
    for (const char character : value) {
        const auto byte = static_cast<unsigned char>(character);
        const bool isPlain = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                             (byte >= 'a' && byte <= 'z') || plainPunctuation.find(character) != std::string_view::npos;
        if (isPlain) {
            text += character;
        } else {
            text += {'%', digits[byte >> 4], digits[byte & 0xF]};
        }
    }
}

} // namespace

std::string buildQueryPath(std::string_view path, const QueryItems& items) {
    std::string text(path);
    char separator = '?';
    for (const auto& [key, value] : items.pairs()) {
        text += separator;
        appendEncoded(text, key);
        text += '=';
        appendEncoded(text, value);
        separator = '&';
    }
    return text;
}

} // namespace orvane
