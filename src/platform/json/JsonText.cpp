#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>

#include <utf8proc.h>

#include "platform/json/Json.h"
#include "platform/text/Text.h"

namespace platform {

namespace {

/// The most bytes that one escape stands for.
constexpr std::size_t scalarLimit = 4;
constexpr std::size_t pieceSize = std::size_t{64} << 10U;

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

/// A text with escapes, or what is left of it.
struct EscapedText {
    const char* text;
    std::size_t length; ///< Without escapes, in bytes.
};

/// Unescapes what is `left` to the bytes from `to` to `limit`, as much as they have room for; gives the end. An escape
/// that is the last to fit may stand behind the limit.
char* unescape(EscapedText& left, char* to, const char* limit) {
    auto [from, length] = left;
    while (length > 0 && to < limit) {
        // The text is written in no fewer bytes than it has.
        const std::string_view next(from, std::min(length, static_cast<std::size_t>(limit - to)));
        const std::string_view plain = next.substr(0, next.find('\\'));
        std::memcpy(to, plain.data(), plain.size());
        from += plain.size();
        to += plain.size();
        length -= plain.size();
        if (plain.size() < next.size()) {
            const char* const start = to;
            takeEscape(from, to);
            length -= static_cast<std::size_t>(to - start);
        }
    }
    left = {from, length};
    return to;
}

} // namespace

void JsonText::forEachPiece(const std::function<void(std::string_view)>& visit) const {
    EscapedText rest{node_->text, node_->length};
    if (rest.length == 0) {
        return;
    }
    if (node_->kind == JsonNode::Kind::text) {
        visit({rest.text, rest.length});
        return;
    }
    const std::size_t size = std::min(rest.length, pieceSize);
    const auto piece = std::make_unique_for_overwrite<char[]>(size + scalarLimit);
    char* end = piece.get();
    while (rest.length > 0) {
        end = unescape(rest, end, piece.get() + size);
        const std::string_view text(piece.get(), end);
        const std::size_t uncut = uncutLength(text);
        visit(text.substr(0, uncut));
        const std::string_view cut = text.substr(uncut);
        end = std::copy(cut.begin(), cut.end(), piece.get());
    }
}

std::string_view UnescapedTexts::of(const JsonNode& node) {
    if (node.kind == JsonNode::Kind::text) {
        return {node.text, node.length};
    }
    char* const text = static_cast<char*>(memory_.allocate(node.length, 1));
    EscapedText escaped{node.text, node.length};
    return {text, unescape(escaped, text, text + node.length)};
}

} // namespace platform
