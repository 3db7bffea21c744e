// Tolerant reading of JSON, and the quoting of texts for it. The library behind the reading stays in the source file.
#pragma once

#include <array>
#include <concepts>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

class JsonObjectDocument;
class JsonValue;

/// One value or key of a document, as parsing leaves it; for the views below alone. A document is its nodes in the
/// order of its text: behind an array come its elements, behind an object each key, unescaped, and its value.
struct JsonNode {
    enum class Kind : std::uint32_t { null, no, yes, number, text, escapedText, array, object };

    const char* text;     ///< Of a text or a number, as it was written; of a text, without its quotes.
    std::uint32_t length; ///< In bytes, without escapes; of an array or object, in nodes, itself included.
    Kind kind;

    bool isText() const { return kind == Kind::text || kind == Kind::escapedText; }
};

/// A text that may be long. Taken piece by piece it needs no memory, whatever escapes it holds.
class JsonText {
public:
    /// `node` is a text.
    explicit JsonText(const JsonNode& node) : node_(&node) {}

    /// Calls `visit` with the pieces that make up the text, in their order. Each is whole UTF-8, not empty, and valid
    /// until the next one.
    void forEachPiece(const std::function<void(std::string_view)>& visit) const;

private:
    const JsonNode* node_;
};

/// The texts of a document that are written with escapes, as they read without; each is there once it is asked for.
class UnescapedTexts {
public:
    /// `node` is a text; one without escapes stands in the document.
    std::string_view of(const JsonNode& node);

private:
    std::pmr::monotonic_buffer_resource memory_;
};

/// A view of an object inside a document, valid as long as the document. Every reader gives nothing when the key is
/// absent or holds another type; texts are views too. Of a key that stands twice, the last counts.
class JsonObject {
public:
    /// `node` is an object.
    JsonObject(const JsonNode& node, UnescapedTexts& texts) : node_(&node), texts_(&texts) {}

    std::optional<std::string_view> text(std::string_view key) const;
    std::optional<JsonText> longText(std::string_view key) const;
    std::optional<bool> boolean(std::string_view key) const;
    /// A number without a fraction that fits 64 bits; 2.0 and 1e3 are such numbers.
    std::optional<std::int64_t> integer(std::string_view key) const;
    std::optional<JsonObject> object(std::string_view key) const;
    // Nothing when a single element is of another type.
    std::optional<std::vector<JsonObject>> objects(std::string_view key) const;
    std::optional<std::vector<std::string_view>> texts(std::string_view key) const;
    /// Any value, null included.
    std::optional<JsonValue> value(std::string_view key) const;
    /// The values of several keys in their order, found in one pass.
    template <std::size_t count>
    std::array<std::optional<JsonValue>, count> values(const std::string_view (&keys)[count]) const;
    /// The members in ascending byte order of their keys.
    std::map<std::string_view, JsonValue> members() const;

private:
    void findValues(const std::string_view* keys, std::optional<JsonValue>* values, std::size_t count) const;

    const JsonNode* node_;
    UnescapedTexts* texts_;
};

/// A view of any value inside a document, valid as long as the document.
class JsonValue {
public:
    JsonValue(const JsonNode& node, UnescapedTexts& texts) : node_(&node), texts_(&texts) {}

    bool isText() const { return node_->isText(); }
    std::optional<std::string_view> text() const;
    std::optional<JsonObject> object() const;
    std::optional<std::vector<JsonObject>> objects() const;
    /// The value as indented JSON with its keys sorted and its numbers as `prettyJsonNumber` writes them.
    std::string prettyText() const;

private:
    const JsonNode* node_;
    UnescapedTexts* texts_;
};

template <std::size_t count>
std::array<std::optional<JsonValue>, count> JsonObject::values(const std::string_view (&keys)[count]) const {
    std::array<std::optional<JsonValue>, count> values;
    findValues(keys, values.data(), count);
    return values;
}

/// What is to be parsed: a text that outlives its document, and so no temporary one.
class JsonSource {
public:
    template <std::convertible_to<std::string_view> Text>
    requires(!std::same_as<Text, std::string>) JsonSource(Text&& text) : text_(std::forward<Text>(text)) {}

    std::string_view text() const { return text_; }

private:
    std::string_view text_;
};

/// A parsed JSON text. Parsing reads strict JSON in UTF-8 of at most 512 levels and 4 GiB, whose numbers a double can
/// reach. The text stays where it is, unchanged, and the views show it there.
class JsonDocument {
public:
    /// Nothing when `source` is not JSON.
    static std::optional<JsonDocument> parse(JsonSource source);
    /// `parse` that throws std::runtime_error, which says what is wrong, in place of giving nothing.
    static JsonDocument parseOrThrow(JsonSource source);
    /// Nothing when `source` is not a JSON object.
    static std::optional<JsonObjectDocument> parseObject(JsonSource source);

    JsonValue root() const { return {nodes_.front(), *texts_}; }

private:
    friend class JsonObjectDocument;
    JsonDocument() = default;
    /// What is wrong with `text`; nothing after success.
    std::optional<std::string_view> read(std::string_view text);

    std::vector<JsonNode> nodes_;
    std::unique_ptr<UnescapedTexts> texts_ = std::make_unique<UnescapedTexts>();
};

/// A parsed JSON text whose top level is an object.
class JsonObjectDocument {
public:
    JsonObject object() const { return {document_.nodes_.front(), *document_.texts_}; }

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
