#include "platform/Json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>

#include <boost/json/monotonic_resource.hpp>
#include <boost/json/parser.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>

namespace platform {

namespace json = boost::json;

namespace {

constexpr std::size_t levelLimit = 512;

std::optional<std::vector<JsonObject>> objectsOf(const json::value& value) {
    const json::array* array = value.if_array();
    if (array == nullptr) {
        return std::nullopt;
    }
    std::vector<JsonObject> objects;
    objects.reserve(array->size());
    for (const json::value& element : *array) {
        const json::object* object = element.if_object();
        if (object == nullptr) {
            return std::nullopt;
        }
        objects.emplace_back(*object);
    }
    return objects;
}

std::optional<std::string_view> textOf(const json::value& value) {
    const json::string* text = value.if_string();
    return text == nullptr ? std::nullopt : std::optional(std::string_view(text->data(), text->size()));
}

std::optional<std::int64_t> integerOf(const json::value& value) {
    if (const std::int64_t* integer = value.if_int64()) {
        return *integer;
    }
    // 2^63, exactly: the least number that no longer fits.
    constexpr double bound = 9223372036854775808.0;
    const double* number = value.if_double();
    if (number == nullptr || *number < -bound || *number >= bound) {
        return std::nullopt;
    }
    const auto integer = static_cast<std::int64_t>(*number);
    return static_cast<double>(integer) == *number ? std::optional(integer) : std::nullopt;
}

template <class... Format>
void appendNumber(std::string& text, auto number, Format... format) {
    std::array<char, 400> buffer;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, format...);
    text.append(buffer.data(), result.ptr);
}

void appendQuoted(std::string& text, std::string_view value) {
    text += json::serialize(json::string_view(value.data(), value.size()));
}

void appendPretty(std::string& text, const json::value& value, std::size_t indent);

template <class Elements, class AppendElement>
void appendPrettyBlock(std::string& text, char open, char close, const Elements& elements, std::size_t indent,
                       AppendElement appendElement) {
    constexpr std::size_t step = 2;
    text += open;
    const char* separator = "\n";
    for (const auto& element : elements) {
        text += separator;
        text.append(indent + step, ' ');
        appendElement(element, indent + step);
        separator = ",\n";
    }
    if (!elements.empty()) {
        text += '\n';
        text.append(indent, ' ');
    }
    text += close;
}

void appendPretty(std::string& text, const json::value& value, std::size_t indent) {
    switch (value.kind()) {
    case json::kind::object: {
        const json::object& object = value.get_object();
        appendPrettyBlock(text, '{', '}', JsonObject(object).sortedKeys(), indent,
                          [&](std::string_view key, std::size_t inner) {
                              appendQuoted(text, key);
                              text += ": ";
                              appendPretty(text, *object.if_contains(key), inner);
                          });
        break;
    }
    case json::kind::array:
        appendPrettyBlock(text, '[', ']', value.get_array(), indent,
                          [&](const json::value& element, std::size_t inner) { appendPretty(text, element, inner); });
        break;
    case json::kind::string:
        appendQuoted(text, *textOf(value));
        break;
    case json::kind::int64:
        appendNumber(text, value.get_int64());
        break;
    case json::kind::uint64:
        appendNumber(text, value.get_uint64());
        break;
    case json::kind::double_:
        appendNumber(text, value.get_double(), std::chars_format::fixed);
        break;
    case json::kind::bool_:
        text += value.get_bool() ? "true" : "false";
        break;
    case json::kind::null:
        text += "null";
        break;
    }
}

} // namespace

std::optional<JsonValue> JsonObject::value(std::string_view key) const {
    const json::value* value = object_->if_contains(key);
    return value == nullptr ? std::nullopt : std::optional(JsonValue(*value));
}

std::optional<std::string_view> JsonObject::text(std::string_view key) const {
    const json::value* value = object_->if_contains(key);
    return value == nullptr ? std::nullopt : textOf(*value);
}

std::optional<bool> JsonObject::boolean(std::string_view key) const {
    const json::value* value = object_->if_contains(key);
    const bool* boolean = value == nullptr ? nullptr : value->if_bool();
    return boolean == nullptr ? std::nullopt : std::optional(*boolean);
}

std::optional<std::int64_t> JsonObject::integer(std::string_view key) const {
    const json::value* value = object_->if_contains(key);
    return value == nullptr ? std::nullopt : integerOf(*value);
}

std::optional<JsonObject> JsonObject::object(std::string_view key) const {
    const std::optional<JsonValue> found = value(key);
    return found ? found->object() : std::nullopt;
}

std::optional<std::vector<JsonObject>> JsonObject::objects(std::string_view key) const {
    const json::value* value = object_->if_contains(key);
    return value == nullptr ? std::nullopt : objectsOf(*value);
}

std::vector<std::string_view> JsonObject::sortedKeys() const {
    std::vector<std::string_view> keys;
    keys.reserve(object_->size());
    for (const auto& pair : *object_) {
        keys.emplace_back(pair.key().data(), pair.key().size());
    }
    std::sort(keys.begin(), keys.end());
    return keys;
}

std::optional<std::string_view> JsonValue::text() const {
    return textOf(*value_);
}

std::optional<JsonObject> JsonValue::object() const {
    const json::object* object = value_->if_object();
    return object == nullptr ? std::nullopt : std::optional(JsonObject(*object));
}

std::optional<std::vector<JsonObject>> JsonValue::objects() const {
    return objectsOf(*value_);
}

std::string JsonValue::prettyText() const {
    std::string text;
    appendPretty(text, *value_, 0);
    return text;
}

struct JsonDocument::Storage {
    json::monotonic_resource memory;
    std::optional<json::value> root;
};

JsonDocument::JsonDocument(std::unique_ptr<Storage> storage) : storage_(std::move(storage)) {}
JsonDocument::JsonDocument(JsonDocument&&) noexcept = default;
JsonDocument& JsonDocument::operator=(JsonDocument&&) noexcept = default;
JsonDocument::~JsonDocument() = default;

std::unique_ptr<JsonDocument::Storage> JsonDocument::parsed(std::string_view text, std::string& problem) {
    json::parse_options options;
    options.max_depth = levelLimit;
    json::parser parser(json::storage_ptr(), options);
    auto storage = std::make_unique<Storage>();
    parser.reset(&storage->memory);
    json::error_code error;
    parser.write(text.data(), text.size(), error);
    if (error) {
        problem = error.message();
        return nullptr;
    }
    storage->root.emplace(parser.release());
    return storage;
}

std::optional<JsonDocument> JsonDocument::parse(std::string_view text) {
    std::string problem;
    std::unique_ptr<Storage> storage = parsed(text, problem);
    return storage ? std::optional(JsonDocument(std::move(storage))) : std::nullopt;
}

JsonDocument JsonDocument::parseOrThrow(std::string_view text) {
    std::string problem;
    std::unique_ptr<Storage> storage = parsed(text, problem);
    if (!storage) {
        throw std::runtime_error("The data is not valid JSON: " + problem + ".");
    }
    return JsonDocument(std::move(storage));
}

std::optional<JsonDocument> JsonDocument::parseObject(std::string_view text) {
    std::optional<JsonDocument> document = parse(text);
    return document && document->root().object() ? std::move(document) : std::nullopt;
}

JsonValue JsonDocument::root() const {
    return JsonValue(*storage_->root);
}

JsonObject JsonDocument::object() const {
    return JsonObject(storage_->root->get_object());
}

} // namespace platform
