#include "platform/text/Text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

#include <utf8proc.h>

#include "platform/text/ByteScan.h"

namespace platform {

namespace {

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

constexpr auto isNonAscii = [](auto byte) { return byte >= 0x80; };
constexpr auto isNonAsciiOrReturn = [](auto byte) { return (byte >= 0x80) | (byte == '\r'); };

bool startsNonAscii(std::string_view text) {
    return !text.empty() && isNonAscii(static_cast<unsigned char>(text.front()));
}

bool continues(std::string_view text, std::size_t i) {
    return i < text.size() && (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80;
}

/// Whether the second byte fits the first of a sequence of three or four: neither an overlong form nor a surrogate nor
/// what lies beyond U+10FFFF.
bool beginsLongSequence(std::string_view text) {
    if (!continues(text, 1)) {
        return false;
    }
    const auto lead = static_cast<unsigned char>(text[0]);
    const auto second = static_cast<unsigned char>(text[1]);
    return lead <= 0xF4 && (lead != 0xE0 || second >= 0xA0) && (lead != 0xED || second < 0xA0) &&
           (lead != 0xF0 || second >= 0x90) && (lead != 0xF4 || second < 0x90);
}

/// The length of the well-formed sequence at the front of `text`, which begins with a byte outside ASCII; 0 when it is
/// malformed.
std::size_t sequenceLength(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0xE0) {
        return lead >= 0xC2 && continues(text, 1) ? 2 : 0;
    }
    const std::size_t length = lead < 0xF0 ? 3 : 4;
    return beginsLongSequence(text) && continues(text, 2) && (length == 3 || continues(text, 3)) ? length : 0;
}

struct Scalar {
    utf8proc_int32_t value; ///< Negative for a malformed sequence.
    std::size_t length;     ///< Bytes.
};

/// The scalar at the front of a non-empty text.
Scalar firstScalar(std::string_view text) {
    const auto bits = [&](std::size_t i, unsigned mask) {
        return static_cast<utf8proc_int32_t>(static_cast<unsigned char>(text[i]) & mask);
    };
    if (!startsNonAscii(text)) {
        return {bits(0, 0x7F), 1};
    }
    switch (sequenceLength(text)) {
    case 2:
        return {bits(0, 0x1F) << 6 | bits(1, 0x3F), 2};
    case 3:
        return {bits(0, 0x0F) << 12 | bits(1, 0x3F) << 6 | bits(2, 0x3F), 3};
    case 4:
        return {bits(0, 0x07) << 18 | bits(1, 0x3F) << 12 | bits(2, 0x3F) << 6 | bits(3, 0x3F), 4};
    default:
        return {-1, malformedLength(text)};
    }
}

utf8proc_category_t category(std::string_view character) {
    if (character.empty()) {
        return UTF8PROC_CATEGORY_CN;
    }
    return utf8proc_category(std::max(firstScalar(character).value, 0));
}

/// The length of the character at the front of a non-empty text, in bytes.
std::size_t firstCharacterLength(std::string_view text) {
    if (!startsNonAscii(text) && !startsNonAscii(text.substr(1))) {
        return text[0] == '\r' && text.substr(1).starts_with('\n') ? 2 : 1;
    }
    utf8proc_int32_t state = 0;
    Scalar scalar = firstScalar(text);
    std::size_t length = scalar.length;
    while (length < text.size()) {
        const utf8proc_int32_t previous = scalar.value < 0 ? 0xFFFD : scalar.value;
        scalar = firstScalar(text.substr(length));
        if (utf8proc_grapheme_break_stateful(previous, scalar.value < 0 ? 0xFFFD : scalar.value, &state)) {
            break;
        }
        length += scalar.length;
    }
    return length;
}

/// Calls `visit` with each character in turn.
template <class Visit>
void forEachCharacter(std::string_view text, Visit visit) {
    while (!text.empty()) {
        const std::size_t length = firstCharacterLength(text);
        visit(text.substr(0, length));
        text.remove_prefix(length);
    }
}

void appendScalar(std::string& text, utf8proc_int32_t scalar) {
    utf8proc_uint8_t bytes[4];
    const auto length = utf8proc_encode_char(scalar, bytes);
    text.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
}

template <class Map>
std::string mapScalars(std::string_view text, Map map) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Scalar scalar = firstScalar(text);
        if (scalar.value < 0) {
            result += text.substr(0, scalar.length);
        } else {
            appendScalar(result, map(scalar.value));
        }
        text.remove_prefix(scalar.length);
    }
    return result;
}

/// The property White_Space.
bool isWhiteSpace(utf8proc_int32_t scalar) {
    return (scalar >= 0x09 && scalar <= 0x0D) || scalar == 0x20 || scalar == 0x85 || scalar == 0xA0 ||
           scalar == 0x1680 || (scalar >= 0x2000 && scalar <= 0x200A) || scalar == 0x2028 || scalar == 0x2029 ||
           scalar == 0x202F || scalar == 0x205F || scalar == 0x3000;
}

std::string_view trimmedAtStart(std::string_view text) {
    while (!text.empty()) {
        const Scalar scalar = firstScalar(text);
        if (!isWhiteSpace(scalar.value)) {
            break;
        }
        text.remove_prefix(scalar.length);
    }
    return text;
}

} // namespace

std::size_t characterCount(std::string_view text) {
    std::size_t count = 0;
    while (!text.empty()) {
        const std::size_t ascii = findByte(text, 0, isNonAscii);
        // What comes behind may belong to the last of a run, unless that is a control character.
        const bool endsApart = ascii == text.size() || (ascii > 0 && text[ascii - 1] < ' ');
        const std::string_view run = text.substr(0, endsApart ? ascii : ascii - std::min<std::size_t>(ascii, 1));
        count += run.size();
        for (auto at = run.find("\r\n"); at != std::string_view::npos; at = run.find("\r\n", at + 2)) {
            --count;
        }
        text.remove_prefix(run.size());
        if (!text.empty()) {
            text.remove_prefix(firstCharacterLength(text));
            ++count;
        }
    }
    return count;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    if (count >= text.size()) {
        return text;
    }
    // A plain byte is a character, unless what comes behind belongs to it.
    const std::size_t plain = findByte(text.substr(0, count + 1), 0, isNonAsciiOrReturn);
    std::size_t length = plain > count ? count : plain - std::min<std::size_t>(plain, 1);
    for (std::size_t taken = length; taken < count && length < text.size(); ++taken) {
        length += firstCharacterLength(text.substr(length));
    }
    return text.substr(0, length);
}

std::vector<std::string_view> splitCharacters(std::string_view text) {
    std::vector<std::string_view> characters;
    characters.reserve(text.size());
    forEachCharacter(text, [&](std::string_view character) { characters.push_back(character); });
    return characters;
}

bool isUppercase(std::string_view character) {
    return category(character) == UTF8PROC_CATEGORY_LU;
}

bool isLowercase(std::string_view character) {
    return category(character) == UTF8PROC_CATEGORY_LL;
}

bool isAlphanumeric(std::string_view character) {
    switch (category(character)) {
    case UTF8PROC_CATEGORY_LU:
    case UTF8PROC_CATEGORY_LL:
    case UTF8PROC_CATEGORY_LT:
    case UTF8PROC_CATEGORY_LM:
    case UTF8PROC_CATEGORY_LO:
    case UTF8PROC_CATEGORY_ND:
    case UTF8PROC_CATEGORY_NL:
    case UTF8PROC_CATEGORY_NO:
        return true;
    default:
        return false;
    }
}

std::string lowercased(std::string_view text) {
    return mapScalars(text, utf8proc_tolower);
}

std::string uppercased(std::string_view text) {
    return mapScalars(text, utf8proc_toupper);
}

std::string capitalized(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    bool inWord = false;
    forEachCharacter(text, [&](std::string_view character) {
        result += inWord ? lowercased(character) : uppercased(character);
        inWord = !isWhiteSpace(firstScalar(character).value);
    });
    return result;
}

std::string_view trimmedAtEnd(std::string_view text) {
    while (!text.empty()) {
        std::size_t start = text.size() - 1;
        while (start > 0 && (static_cast<unsigned char>(text[start]) & 0xC0) == 0x80) {
            --start;
        }
        const Scalar scalar = firstScalar(text.substr(start));
        if (start + scalar.length != text.size() || !isWhiteSpace(scalar.value)) {
            break;
        }
        text = text.substr(0, start);
    }
    return text;
}

std::string_view trimmed(std::string_view text) {
    return trimmedAtEnd(trimmedAtStart(text));
}

bool isValidUtf8(std::string_view bytes) {
    std::size_t position = 0;
    while ((position = findByte(bytes, position, isNonAscii)) < bytes.size()) {
        do {
            const std::size_t length = sequenceLength(bytes.substr(position));
            if (length == 0) {
                return false;
            }
            position += length;
        } while (startsNonAscii(bytes.substr(position)));
    }
    return true;
}

std::size_t uncutLength(std::string_view bytes) {
    constexpr std::size_t longest = 4;
    const std::size_t earliest = bytes.size() - std::min(bytes.size(), longest - 1);
    for (std::size_t start = bytes.size(); start-- > earliest;) {
        const auto byte = static_cast<unsigned char>(bytes[start]);
        const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
        if (length > bytes.size() - start) {
            return start;
        }
        if (byte < 0x80 || byte >= 0xC0) {
            break;
        }
    }
    return bytes.size();
}

std::size_t malformedLength(std::string_view bytes) {
    const auto lead = static_cast<unsigned char>(bytes[0]);
    if (lead < 0xE0 || !beginsLongSequence(bytes)) {
        return 1;
    }
    return lead >= 0xF0 && continues(bytes, 2) ? 3 : 2;
}

std::string repairedUtf8(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        const Scalar scalar = firstScalar(bytes);
        result += scalar.value < 0 ? replacementCharacter : bytes.substr(0, scalar.length);
        bytes.remove_prefix(scalar.length);
    }
    return result;
}

template <class Number>
std::optional<Number> parseNumber(std::string_view text) {
    // from_chars knows no plus sign, and must not be given "+-1".
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    Number number{};
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (text.empty() || result.ec != std::errc() || result.ptr != end) {
        return std::nullopt;
    }
    return number;
}

template std::optional<std::int8_t> parseNumber(std::string_view);
template std::optional<std::int16_t> parseNumber(std::string_view);
template std::optional<std::int32_t> parseNumber(std::string_view);
template std::optional<std::int64_t> parseNumber(std::string_view);
template std::optional<std::uint8_t> parseNumber(std::string_view);
template std::optional<std::uint16_t> parseNumber(std::string_view);
template std::optional<std::uint32_t> parseNumber(std::string_view);
template std::optional<std::uint64_t> parseNumber(std::string_view);
template std::optional<float> parseNumber(std::string_view);
template std::optional<double> parseNumber(std::string_view);

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    while (true) {
        const auto end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + 1);
    }
}

std::string joined(const std::vector<std::string>& pieces, std::string_view separator) {
    std::string result;
    for (const std::string& piece : pieces) {
        if (&piece != &pieces.front()) {
            result += separator;
        }
        result += piece;
    }
    return result;
}

} // namespace platform
