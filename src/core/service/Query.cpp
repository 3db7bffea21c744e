#include "core/service/Query.h"

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

QueryItems& QueryItems::add(std::string_view key, std::string_view value) {
    if (!text_.empty()) {
        text_ += '&';
    }
    appendEncoded(text_, key);
    text_ += '=';
    appendEncoded(text_, value);
    return *this;
}

QueryItems& QueryItems::add(const QueryItems& items) {
    if (!text_.empty() && !items.text_.empty()) {
        text_ += '&';
    }
    text_ += items.text_;
    return *this;
}

std::string buildQueryPath(std::string_view path, const QueryItems& items) {
    std::string text(path);
    if (!items.text().empty()) {
        text.append("?").append(items.text());
    }
    return text;
}

} // namespace orvane
