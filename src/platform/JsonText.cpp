#include <algorithm>
#include <array>
#include <charconv>

#include <utf8proc.h>

#include "platform/ByteScan.h"
#include "platform/Json.h"

namespace platform {

namespace {

constexpr auto isBackslash = [](auto byte) { return byte == '\\'; };

/// The most bytes that one escape stands for.
constexpr std::size_t scalarLimit = 4;

/// The four hexadecimal digits behind "\\u", at the front of `escape`.
std::int32_t codeUnit(std::string_view escape) {
    constexpr std::size_t start = 2;
    constexpr std::size_t end = 6;
    constexpr int base = 16;
    std::int32_t unit = 0;
    std::from_chars(escape.data() + start, escape.data() + end, unit, base);
    return unit;
}

char controlCharacter(char letter) {
    switch (letter) {
    case 'b':
        return '\b';
    case 'f':
        return '\f';
    case 'n':
        return '\n';
    case 'r':
        return '\r';
    case 't':
        return '\t';
    default:
        return letter; // a quote, a slash or a backslash
    }
}

/// Takes the escape, a well-formed one, from the front of `rest` and writes what it stands for to `to`; where that
/// ends.
char* takeEscape(std::string_view& rest, char* to) {
    if (rest[1] != 'u') {
        *to = controlCharacter(rest[1]);
        rest.remove_prefix(2);
        return to + 1;
    }
    constexpr std::size_t escapeLength = 6;
    constexpr std::int32_t firstHigh = 0xD800;
    constexpr std::int32_t firstLow = 0xDC00;
    std::int32_t scalar = codeUnit(rest);
    rest.remove_prefix(escapeLength);
    if (scalar >= firstHigh && scalar < firstLow) {
        scalar = 0x10000 + (scalar - firstHigh) * 0x400 + (codeUnit(rest) - firstLow);
        rest.remove_prefix(escapeLength);
    }
    return to + utf8proc_encode_char(scalar, reinterpret_cast<utf8proc_uint8_t*>(to));
}

} // namespace

void JsonText::forEachPiece(const std::function<void(std::string_view)>& visit) const {
    std::string_view rest(node_->text, node_->length);
    const auto visitUnlessEmpty = [&](std::string_view text) {
        if (!text.empty()) {
            visit(text);
        }
    };
    if (node_->kind == JsonNode::Kind::text) {
        visitUnlessEmpty(rest);
        return;
    }
    std::array<char, 4096> piece;
    char* end = piece.data();
    const auto room = [&] { return static_cast<std::size_t>(piece.data() + piece.size() - end); };
    const auto flush = [&] {
        visitUnlessEmpty({piece.data(), end});
        end = piece.data();
    };
    while (!rest.empty()) {
        const std::string_view plain = rest.substr(0, findByte(rest, 0, isBackslash));
        if (room() < plain.size() + scalarLimit) {
            flush();
        }
        if (room() < plain.size() + scalarLimit) {
            visit(plain);
        } else {
            end = std::copy(plain.begin(), plain.end(), end);
        }
        rest.remove_prefix(plain.size());
        if (!rest.empty()) {
            end = takeEscape(rest, end);
        }
    }
    flush();
}

std::string_view UnescapedTexts::of(const JsonNode& node) {
    if (node.kind == JsonNode::Kind::text) {
        return {node.text, node.length};
    }
    // No text is longer than it is written.
    char* const text = static_cast<char*>(memory_.allocate(node.length, 1));
    char* end = text;
    JsonText(node).forEachPiece([&](std::string_view piece) { end = std::copy(piece.begin(), piece.end(), end); });
    return {text, end};
}

} // namespace platform
