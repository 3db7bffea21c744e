#include "platform/Json.h"

#include <algorithm>
#include <array>
#include <limits>
#include <stdexcept>

#if defined(__SSE2__)
#define RAPIDJSON_SSE2
#elif defined(__aarch64__)
#define RAPIDJSON_NEON
#endif
#include <rapidjson/reader.h>

#include "platform/ByteScan.h"
#include "platform/Text.h"

namespace platform {

namespace {

using Kind = JsonNode::Kind;

constexpr std::size_t levelLimit = 512;

/// The reader looks at whole blocks of this many bytes, so as many stay readable behind the text.
constexpr std::size_t blockSize = 16;

struct LoneSurrogate {};

/// UTF-8 for the escapes "\uXXXX", of which the reader lets the second half of a pair stand alone.
struct Utf8 : rapidjson::UTF8<> {
    template <class Output>
    static void Encode(Output& output, unsigned codePoint) {
        if (codePoint >= 0xD800 && codePoint <= 0xDFFF) {
            throw LoneSurrogate();
        }
        rapidjson::UTF8<>::Encode(output, codePoint);
    }
};

/// Collects the nodes from the reader's events; an event that answers false ends the reading.
class NodeCollector {
public:
    explicit NodeCollector(std::vector<JsonNode>& nodes) : nodes_(nodes) {}

    bool Null() { return add(Kind::null); }
    bool Bool(bool value) { return add(value ? Kind::yes : Kind::no); }
    bool RawNumber(const char* text, unsigned length, bool) { return add(Kind::number, text, length); }
    bool String(const char* text, unsigned length, bool) { return add(Kind::text, text, length); }
    bool Key(const char* text, unsigned length, bool) { return add(Kind::text, text, length); }
    bool StartObject() { return open(Kind::object); }
    bool EndObject(unsigned) { return close(); }
    bool StartArray() { return open(Kind::array); }
    bool EndArray(unsigned) { return close(); }

    // Not called, for numbers come as their text.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(std::int64_t) { return false; }
    bool Uint64(std::uint64_t) { return false; }
    bool Double(double) { return false; }

private:
    bool add(Kind kind, const char* text = nullptr, std::uint32_t length = 1) {
        nodes_.push_back({text, length, kind});
        return true;
    }

    bool open(Kind kind) {
        if (level_ == levelLimit) {
            return false;
        }
        starts_[level_++] = nodes_.size();
        return add(kind);
    }

    bool close() {
        const std::size_t start = starts_[--level_];
        nodes_[start].length = static_cast<std::uint32_t>(nodes_.size() - start);
        return true;
    }

    std::vector<JsonNode>& nodes_;
    std::array<std::size_t, levelLimit> starts_;
    std::size_t level_ = 0;
};

/// The control characters from 0x1A to 0x1F, which the reader's search for whole blocks overlooks inside texts.
bool isOverlookedControl(unsigned char byte) {
    return static_cast<unsigned char>(byte - 0x1A) < 6;
}

std::string_view description(rapidjson::ParseErrorCode error) {
    switch (error) {
    case rapidjson::kParseErrorDocumentRootNotSingular:
        return "something follows its end";
    case rapidjson::kParseErrorObjectMissName:
        return "an object's key is missing";
    case rapidjson::kParseErrorObjectMissColon:
        return "the colon behind a key is missing";
    case rapidjson::kParseErrorObjectMissCommaOrCurlyBracket:
        return "a comma or } is missing in an object";
    case rapidjson::kParseErrorArrayMissCommaOrSquareBracket:
        return "a comma or ] is missing in an array";
    case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
    case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
    case rapidjson::kParseErrorStringEscapeInvalid:
        return "malformed escape in a text";
    case rapidjson::kParseErrorNumberTooBig:
        return "a number is too large";
    case rapidjson::kParseErrorTermination:
        return "nested too deeply";
    default:
        return "malformed value";
    }
}

} // namespace

std::optional<std::string_view> JsonDocument::read(std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
        return "too large";
    }
    const auto needsALook = [](unsigned char byte) { return (byte >= 0x80) | isOverlookedControl(byte); };
    const std::string_view rest = text.substr(findByte(text, 0, needsALook));
    if (findByte(rest, 0, isOverlookedControl) < rest.size()) {
        return "unescaped control character";
    }
    if (!isValidUtf8(rest)) {
        return "malformed UTF-8";
    }
    text_ = std::make_unique_for_overwrite<char[]>(text.size() + blockSize);
    std::copy(text.begin(), text.end(), text_.get());
    std::fill_n(text_.get() + text.size(), blockSize, '\0');
    constexpr std::size_t averageNodeText = 16;
    nodes_.reserve(text.size() / averageNodeText + 1);
    NodeCollector collector(nodes_);
    rapidjson::GenericReader<Utf8, Utf8> reader;
    rapidjson::InsituStringStream stream(text_.get());
    try {
        constexpr unsigned flags = rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;
        const rapidjson::ParseResult result = reader.Parse<flags>(stream, collector);
        if (result.IsError()) {
            return result.Offset() == text.size() ? "incomplete JSON" : description(result.Code());
        }
    } catch (const LoneSurrogate&) {
        return description(rapidjson::kParseErrorStringUnicodeSurrogateInvalid);
    }
    // To the reader, a null byte is the end.
    if (stream.Tell() < text.size()) {
        return description(rapidjson::kParseErrorDocumentRootNotSingular);
    }
    return std::nullopt;
}

std::optional<JsonDocument> JsonDocument::parse(std::string_view text) {
    JsonDocument document;
    return document.read(text) ? std::nullopt : std::optional(std::move(document));
}

JsonDocument JsonDocument::parseOrThrow(std::string_view text) {
    JsonDocument document;
    if (const auto problem = document.read(text)) {
        throw std::runtime_error("The data is not valid JSON: " + std::string(*problem) + ".");
    }
    return document;
}

std::optional<JsonObjectDocument> JsonDocument::parseObject(std::string_view text) {
    // Only what can be an object is worth the copy.
    const std::size_t start = text.find_first_not_of(" \t\n\r");
    if (start == std::string_view::npos || text[start] != '{') {
        return std::nullopt;
    }
    std::optional<JsonDocument> document = parse(text);
    return document ? std::optional(JsonObjectDocument(*std::move(document))) : std::nullopt;
}

} // namespace platform
