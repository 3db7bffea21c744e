// Tolerant reading of JSON. The library behind it stays in the source file, for it is slow to compile.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace boost::json {
class value;
class object;
} // namespace boost::json

namespace platform {

class JsonValue;

/// A view of an object inside a JsonDocument, valid as long as the document. Every reader gives nothing when the key is
/// absent or holds another type; texts are views too.
class JsonObject {
public:
    explicit JsonObject(const boost::json::object& object) : object_(&object) {}

    std::optional<std::string_view> text(std::string_view key) const;
    std::optional<bool> boolean(std::string_view key) const;
    /// A number without a fraction that fits 64 bits.
    std::optional<std::int64_t> integer(std::string_view key) const;
    std::optional<JsonObject> object(std::string_view key) const;
    /// Nothing when a single element is of another type.
    std::optional<std::vector<JsonObject>> objects(std::string_view key) const;
    /// Any value, null included.
    std::optional<JsonValue> value(std::string_view key) const;
    /// The keys in ascending byte order.
    std::vector<std::string_view> sortedKeys() const;

private:
    const boost::json::object* object_;
};

/// A view of any value inside a JsonDocument, valid as long as the document.
class JsonValue {
public:
    explicit JsonValue(const boost::json::value& value) : value_(&value) {}

    std::optional<std::string_view> text() const;
    std::optional<JsonObject> object() const;
    std::optional<std::vector<JsonObject>> objects() const;
    /// The value as indented JSON with its keys sorted and its numbers in plain notation.
    std::string prettyText() const;

private:
    const boost::json::value* value_;
};

/// A parsed JSON text, which owns what the views show.
class JsonDocument {
public:
    /// Nothing when `text` is not strict JSON in UTF-8 of at most 512 levels.
    static std::optional<JsonDocument> parse(std::string_view text);
    /// `parse` that throws std::runtime_error, which says what is wrong, in place of giving nothing.
    static JsonDocument parseOrThrow(std::string_view text);
    /// `parse`, kept when the top level is an object.
    static std::optional<JsonDocument> parseObject(std::string_view text);

    JsonDocument(JsonDocument&&) noexcept;
    JsonDocument& operator=(JsonDocument&&) noexcept;
    ~JsonDocument();

    JsonValue root() const;
    /// The top level. Only for a document that `parseObject` gave.
    JsonObject object() const;

private:
    struct Storage;
    /// Null, and what is wrong, for a text that can't be parsed.
    static std::unique_ptr<Storage> parsed(std::string_view text, std::string& problem);
    explicit JsonDocument(std::unique_ptr<Storage> storage);
    std::unique_ptr<Storage> storage_;
};

} // namespace platform
