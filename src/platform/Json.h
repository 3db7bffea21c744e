// Tolerant reading of JSON, and the quoting of texts for it. The library behind the reading stays in the source file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

class JsonObjectDocument;
class JsonValue;

/// One value or key of a document, as parsing leaves it; for the views below alone. A document is its nodes in the
/// order of its text: behind an array come its elements, behind an object each key and its value.
struct JsonNode {
    enum class Kind : std::uint32_t { null, no, yes, number, text, array, object };

    const char* text;     ///< Of a text, unescaped, or of a number, as it was written.
    std::uint32_t length; ///< In bytes; of an array or object, in nodes, itself included.
    Kind kind;
};

/// A view of an object inside a document, valid as long as the document. Every reader gives nothing when the key is
/// absent or holds another type; texts are views too. Of a key that stands twice, the last counts.
class JsonObject {
public:
    /// `node` is an object.
    explicit JsonObject(const JsonNode& node) : node_(&node) {}

    std::optional<std::string_view> text(std::string_view key) const;
    std::optional<bool> boolean(std::string_view key) const;
    /// A number without a fraction that fits 64 bits; 2.0 and 1e3 are such numbers.
    std::optional<std::int64_t> integer(std::string_view key) const;
    std::optional<JsonObject> object(std::string_view key) const;
    // Nothing when a single element is of another type.
    std::optional<std::vector<JsonObject>> objects(std::string_view key) const;
    std::optional<std::vector<std::string_view>> texts(std::string_view key) const;
    /// Any value, null included.
    std::optional<JsonValue> value(std::string_view key) const;
    /// The keys in ascending byte order, each once.
    std::vector<std::string_view> sortedKeys() const;

private:
    const JsonNode* node_;
};

/// A view of any value inside a document, valid as long as the document.
class JsonValue {
public:
    explicit JsonValue(const JsonNode& node) : node_(&node) {}

    std::optional<std::string_view> text() const;
    std::optional<JsonObject> object() const;
    std::optional<std::vector<JsonObject>> objects() const;
    /// The value as indented JSON with its keys sorted and its numbers as `prettyJsonNumber` writes them.
    std::string prettyText() const;

private:
    const JsonNode* node_;
};

/// A parsed JSON text, which owns what the views show. Parsing reads strict JSON in UTF-8 of at most 512 levels and
/// 4 GiB, whose numbers a double can reach. It works on a copy: the text may go, and is there when it holds no JSON.
class JsonDocument {
public:
    /// Nothing when `text` is not JSON.
    static std::optional<JsonDocument> parse(std::string_view text);
    /// `parse` that throws std::runtime_error, which says what is wrong, in place of giving nothing.
    static JsonDocument parseOrThrow(std::string_view text);
    /// Nothing when `text` is not a JSON object.
    static std::optional<JsonObjectDocument> parseObject(std::string_view text);

    JsonValue root() const { return JsonValue(nodes_.front()); }

private:
    friend class JsonObjectDocument;
    JsonDocument() = default;
    /// What is wrong with `text`; nothing after success.
    std::optional<std::string_view> read(std::string_view text);

    std::unique_ptr<char[]> text_;
    std::vector<JsonNode> nodes_;
};

/// A parsed JSON text whose top level is an object.
class JsonObjectDocument {
public:
    JsonObject object() const { return JsonObject(document_.nodes_.front()); }

private:
    friend class JsonDocument;
    explicit JsonObjectDocument(JsonDocument document) : document_(std::move(document)) {}
    JsonDocument document_;
};

/// Appends `text`, which is UTF-8, as a JSON text: quoted, compact, with no more escapes than JSON asks for.
void appendJsonQuoted(std::string& json, std::string_view text);

/// A JSON number as people write it: plain in up to 21 digits, such as 3.5 or 2024, else as 1e+21. A number with more
/// digits than 64 bits or a double can hold stays as it is.
std::string prettyJsonNumber(std::string_view number);

} // namespace platform
