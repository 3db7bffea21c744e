#include <algorithm>
#include <array>
#include <charconv>

#include <utf8proc.h>

#include "platform/json/Json.h"
#include "platform/text/ByteScan.h"

namespace platform {

namespace {

constexpr auto isBackslash = [](auto byte) { return byte == '\\'; };

/// The most bytes that one escape stands for.
constexpr std::size_t scalarLimit = 4;

/// The four hexadecimal digits behind the "\\u" at `escape`.
std::int32_t codeUnit(const char* escape) {
    constexpr int start = 2;
    constexpr int end = 6;
    constexpr int base = 16;
    std::int32_t unit = 0;
    std::from_chars(escape + start, escape + end, unit, base);
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

/// Writes what the escape at `from`, a well-formed one, stands for to `to`, and moves both behind it.
void takeEscape(const char*& from, char*& to) {
    if (from[1] != 'u') {
        *to++ = controlCharacter(from[1]);
        from += 2;
        return;
    }
    constexpr int escapeLength = 6;
    constexpr std::int32_t firstHigh = 0xD800;
    constexpr std::int32_t firstLow = 0xDC00;
    std::int32_t scalar = codeUnit(from);
    from += escapeLength;
    if (scalar >= firstHigh && scalar < firstLow) {
        scalar = 0x10000 + (scalar - firstHigh) * 0x400 + (codeUnit(from) - firstLow);
        from += escapeLength;
    }
    to += utf8proc_encode_char(scalar, reinterpret_cast<utf8proc_uint8_t*>(to));
}

} // namespace

void JsonText::forEachPiece(const std::function<void(std::string_view)>& visit) const {
    const char* from = node_->text;
    std::size_t left = node_->length;
    const auto visitUnlessEmpty = [&](std::string_view text) {
        if (!text.empty()) {
            visit(text);
        }
    };
    if (node_->kind == JsonNode::Kind::text) {
        visitUnlessEmpty({from, left});
        return;
    }
    std::array<char, 4096> piece;
    char* end = piece.data();
    const auto room = [&] { return static_cast<std::size_t>(piece.data() + piece.size() - end); };
    const auto flush = [&] {
        visitUnlessEmpty({piece.data(), end});
        end = piece.data();
    };
    while (left > 0) {
        const std::string_view rest(from, left);
        const std::string_view plain = rest.substr(0, findByte(rest, 0, isBackslash));
        if (room() < plain.size() + scalarLimit) {
            flush();
        }
        if (room() < plain.size() + scalarLimit) {
            visit(plain);
        } else {
            end = std::copy(plain.begin(), plain.end(), end);
        }
        from += plain.size();
        left -= plain.size();
        if (left > 0) {
            const char* const start = end;
            takeEscape(from, end);
            left -= static_cast<std::size_t>(end - start);
        }
    }
    flush();
}

std::string_view UnescapedTexts::of(const JsonNode& node) {
    if (node.kind == JsonNode::Kind::text) {
        return {node.text, node.length};
    }
    char* const text = static_cast<char*>(memory_.allocate(node.length, 1));
    char* end = text;
    JsonText(node).forEachPiece([&](std::string_view piece) { end = std::copy(piece.begin(), piece.end(), end); });
    return {text, end};
}

} // namespace platform
