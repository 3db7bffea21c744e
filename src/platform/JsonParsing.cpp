#include "platform/Json.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <stdexcept>

#include "platform/ByteScan.h"
#include "platform/Text.h"

namespace platform {

namespace {

using Kind = JsonNode::Kind;

constexpr int levelLimit = 512;

/// The greatest exponent of ten that a double holds.
constexpr std::size_t exponentLimit = 308;

constexpr std::string_view malformedValue = "malformed value";
constexpr std::string_view numberTooLarge = "a number is too large";
constexpr std::string_view malformedEscape = "malformed escape in a text";

/// What is wrong with a text that is not JSON.
struct Malformed {
    std::string_view problem;
};

bool isDigit(char byte) {
    return byte >= '0' && byte <= '9';
}

bool isBlank(char byte) {
    return byte <= ' ' && (byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t');
}

/// Goes through a text that is valid UTF-8 from its front to its end and collects its nodes. What is malformed leaves
/// as an exception.
class Parser {
public:
    Parser(std::string_view text, std::vector<JsonNode>& nodes, UnescapedTexts& texts)
        : position_(text.data()), end_(text.data() + text.size()), nodes_(nodes), texts_(texts) {}

    void parse() {
        value();
        skipBlanks();
        require(position_ == end_, "something follows its end");
    }

private:
    void require(bool condition, std::string_view problem) const {
        if (!condition) {
            fail(problem);
        }
    }

    [[noreturn]] void fail(std::string_view problem) const {
        throw Malformed{position_ == end_ ? "incomplete JSON" : problem};
    }

    /// A null byte, which JSON holds nowhere, at the end.
    char next() const { return position_ == end_ ? '\0' : *position_; }

    void skipBlanks() {
        while (position_ != end_ && isBlank(*position_)) {
            ++position_;
        }
    }

    bool take(char wanted) {
        const bool isNext = next() == wanted;
        position_ += isNext ? 1 : 0;
        return isNext;
    }

    bool takeBehindBlanks(char wanted) {
        skipBlanks();
        return take(wanted);
    }

    void value() {
        skipBlanks();
        switch (next()) {
        case '{':
            return object();
        case '[':
            return array();
        case '"':
            return text();
        case 't':
            return word("true", Kind::yes);
        case 'f':
            return word("false", Kind::no);
        case 'n':
            return word("null", Kind::null);
        default:
            return number();
        }
    }

    void object() {
        const std::size_t start = open(Kind::object);
        if (!takeBehindBlanks('}')) {
            do {
                skipBlanks();
                require(next() == '"', "an object's key is missing");
                key();
                require(takeBehindBlanks(':'), "the colon behind a key is missing");
                value();
            } while (takeBehindBlanks(','));
            require(take('}'), "a comma or } is missing in an object");
        }
        close(start);
    }

    void array() {
        const std::size_t start = open(Kind::array);
        if (!takeBehindBlanks(']')) {
            do {
                value();
            } while (takeBehindBlanks(','));
            require(take(']'), "a comma or ] is missing in an array");
        }
        close(start);
    }

    std::size_t open(Kind kind) {
        require(++level_ <= levelLimit, "nested too deeply");
        ++position_;
        add(kind, position_, position_);
        return nodes_.size() - 1;
    }

    void close(std::size_t start) {
        --level_;
        nodes_[start].length = static_cast<std::uint32_t>(nodes_.size() - start);
    }

    void key() {
        text();
        JsonNode& node = nodes_.back();
        if (node.kind == Kind::escapedText) {
            const std::string_view key = texts_.of(node);
            node = {key.data(), static_cast<std::uint32_t>(key.size()), Kind::text};
        }
    }

    void text() {
        const char* const start = ++position_;
        Kind kind = Kind::text;
        passPlainText();
        while (next() == '\\') {
            kind = Kind::escapedText;
            escape();
            passPlainText();
        }
        require(next() == '"', "unescaped control character");
        add(kind, start, position_);
        ++position_;
    }

    void passPlainText() {
        const std::string_view rest(position_, static_cast<std::size_t>(end_ - position_));
        position_ += findByte(rest, 0, [](auto byte) { return (byte < 0x20) | (byte == '"') | (byte == '\\'); });
    }

    void escape() {
        ++position_;
        if (!take('u')) {
            require(next() != '\0' && std::string_view("\"\\/bfnrt").find(next()) != std::string_view::npos,
                    malformedEscape);
            ++position_;
            return;
        }
        constexpr unsigned surrogateMask = 0xFC00;
        constexpr unsigned high = 0xD800;
        constexpr unsigned low = 0xDC00;
        const unsigned unit = codeUnit();
        require((unit & surrogateMask) != low, malformedEscape);
        if ((unit & surrogateMask) == high) {
            require(take('\\') && take('u') && (codeUnit() & surrogateMask) == low, malformedEscape);
        }
    }

    unsigned codeUnit() {
        constexpr std::ptrdiff_t digitCount = 4;
        constexpr int base = 16;
        unsigned unit = 0;
        const char* const digitsEnd = position_ + std::min(digitCount, end_ - position_);
        const char* const found = std::from_chars(position_, digitsEnd, unit, base).ptr;
        require(found - position_ == digitCount, malformedEscape);
        position_ = found;
        return unit;
    }

    void number() {
        const char* const start = position_;
        take('-');
        if (!take('0')) {
            require(digits() <= exponentLimit + 1, numberTooLarge);
        }
        const std::size_t fractionLength = take('.') ? digits() : 0;
        if (take('e') || take('E')) {
            const bool isSmall = take('-');
            if (!isSmall) {
                take('+');
            }
            const std::size_t length = digits();
            std::size_t exponent = 0;
            const bool fits = std::from_chars(position_ - length, position_, exponent).ec == std::errc();
            require(isSmall || (fits && exponent <= exponentLimit + fractionLength), numberTooLarge);
        }
        add(Kind::number, start, position_);
    }

    /// One digit or more; how many.
    std::size_t digits() {
        const char* const start = position_;
        require(isDigit(next()), malformedValue);
        while (isDigit(next())) {
            ++position_;
        }
        return static_cast<std::size_t>(position_ - start);
    }

    void word(std::string_view letters, Kind kind) {
        const char* const start = position_;
        for (const char letter : letters) {
            require(take(letter), malformedValue);
        }
        add(kind, start, position_);
    }

    void add(Kind kind, const char* start, const char* end) {
        nodes_.push_back({start, static_cast<std::uint32_t>(end - start), kind});
    }

    const char* position_;
    const char* const end_;
    int level_ = 0;
    std::vector<JsonNode>& nodes_;
    UnescapedTexts& texts_;
};

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
    try {
        Parser(text, nodes_, *texts_).parse();
    } catch (const Malformed& malformed) {
        return malformed.problem;
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
    std::optional<JsonDocument> document = parse(text);
    return document ? std::optional(JsonObjectDocument(*std::move(document))) : std::nullopt;
}

} // namespace platform
