#include "platform/json/Json.h"

#include <array>
#include <limits>
#include <stdexcept>

#include <rapidjson/reader.h>

#include "platform/text/ByteScan.h"
#include "platform/text/Text.h"

namespace platform {

namespace {

using Kind = JsonNode::Kind;

constexpr std::size_t levelLimit = 512;

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

constexpr auto endsPlainText = [](auto byte) { return (byte < 0x20) | (byte == '"') | (byte == '\\'); };

/// A text that the reader takes for one to parse in place and to unescape there. What it writes is only counted, so
/// that its events bring each text as it is written, with the length that it has without escapes.
class TextStream {
public:
    using Ch = char;

    explicit TextStream(std::string_view text) : text_(text) {}

    char Peek() const { return position_ == text_.size() ? '\0' : text_[position_]; }
    char Take() { return text_[position_++]; }
    std::size_t Tell() const { return position_; }

    char* PutBegin() {
        length_ = 0;
        return const_cast<char*>(text_.data() + position_);
    }

    void Put(char byte) {
        ++length_;
        // A null byte ends a text. Behind any other, the reader would pass what is plain byte by byte.
        if (byte != '\0') {
            const std::size_t end = findByte(text_, position_, endsPlainText);
            length_ += end - position_;
            position_ = end;
        }
    }

    std::size_t PutEnd(char*) const { return length_; }

private:
    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t length_ = 0;
};

/// Collects the nodes from the reader's events; an event that answers false ends the reading.
class NodeCollector {
public:
    NodeCollector(std::vector<JsonNode>& nodes, UnescapedTexts& texts) : nodes_(nodes), texts_(texts) {}

    bool Null() { return add(Kind::null); }
    bool Bool(bool value) { return add(value ? Kind::yes : Kind::no); }
    /// The reader begins to write a number only once it has passed it.
    bool RawNumber(const char* end, unsigned length, bool) { return add(Kind::number, end - length, length); }

    bool String(const char* text, unsigned length, bool) {
        // Escapes are longer than what they stand for, and a quote inside a text is one.
        const char* const end = text + length;
        const bool isPlain = end[0] == '"' && end[-1] != '\\';
        return add(isPlain ? Kind::text : Kind::escapedText, text, length);
    }

    bool Key(const char* text, unsigned length, bool isCopy) {
        String(text, length, isCopy);
        JsonNode& node = nodes_.back();
        if (node.kind == Kind::escapedText) {
            node = {texts_.of(node).data(), length, Kind::text};
        }
        return true;
    }

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
    UnescapedTexts& texts_;
    std::array<std::size_t, levelLimit> starts_;
    std::size_t level_ = 0;
};

constexpr std::string_view malformedEscape = "malformed escape in a text";
constexpr std::string_view unescapedControl = "unescaped control character";
constexpr std::string_view somethingFollows = "something follows its end";

/// What is wrong at `byte`.
std::string_view description(rapidjson::ParseErrorCode error, char byte) {
    switch (error) {
    case rapidjson::kParseErrorDocumentRootNotSingular:
        return somethingFollows;
    case rapidjson::kParseErrorObjectMissName:
        return "an object's key is missing";
    case rapidjson::kParseErrorObjectMissColon:
        return "the colon behind a key is missing";
    case rapidjson::kParseErrorObjectMissCommaOrCurlyBracket:
        return "a comma or } is missing in an object";
    case rapidjson::kParseErrorArrayMissCommaOrSquareBracket:
        return "a comma or ] is missing in an array";
    case rapidjson::kParseErrorStringMissQuotationMark: // It is a null byte that comes too early.
        return unescapedControl;
    case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
    case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
        return malformedEscape;
    case rapidjson::kParseErrorStringEscapeInvalid:
        return byte == '\\' ? malformedEscape : unescapedControl;
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
    if (!isValidUtf8(text)) {
        return "malformed UTF-8";
    }
    // Hardly any JSON has shorter ones, and what is not used takes no memory.
    constexpr std::size_t leastNodeText = 8;
    nodes_.reserve(text.size() / leastNodeText + 1);
    NodeCollector collector(nodes_, *texts_);
    TextStream stream(text);
    rapidjson::GenericReader<Utf8, Utf8> reader;
    try {
        constexpr unsigned flags = rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;
        const rapidjson::ParseResult result = reader.Parse<flags>(stream, collector);
        if (result.IsError()) {
            return result.Offset() == text.size() ? "incomplete JSON"
                                                  : description(result.Code(), text[result.Offset()]);
        }
    } catch (const LoneSurrogate&) {
        return malformedEscape;
    }
    // To the reader, a null byte is the end.
    if (stream.Tell() < text.size()) {
        return somethingFollows;
    }
    return std::nullopt;
}

std::optional<JsonDocument> JsonDocument::parse(JsonSource source) {
    JsonDocument document;
    return document.read(source.text()) ? std::nullopt : std::optional(std::move(document));
}

JsonDocument JsonDocument::parseOrThrow(JsonSource source) {
    JsonDocument document;
    if (const auto problem = document.read(source.text())) {
        throw std::runtime_error("The data is not valid JSON: " + std::string(*problem) + ".");
    }
    return document;
}

std::optional<JsonObjectDocument> JsonDocument::parseObject(JsonSource source) {
    // Only what can be an object is worth the work.
    const std::string_view text = source.text();
    const std::size_t start = text.find_first_not_of(" \t\n\r");
    if (start == std::string_view::npos || text[start] != '{') {
        return std::nullopt;
    }
    std::optional<JsonDocument> document = parse(source);
    return document ? std::optional(JsonObjectDocument(*std::move(document))) : std::nullopt;
}

} // namespace platform
