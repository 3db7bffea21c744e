#include "platform/json/Json.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "platform/json/JsonTree.h"

namespace platform {

namespace {

using Kind = JsonNode::Kind;

std::size_t nodeCount(const JsonNode& node) {
    return node.kind == Kind::array || node.kind == Kind::object ? node.length : 1;
}

std::string_view textOf(const JsonNode& node) {
    return {node.text, node.length};
}

/// Calls `visit` with the key and the value of each member. Keys have no escapes.
template <class Visit>
void forEachMember(const JsonNode& object, Visit visit) {
    const JsonNode* const end = &object + object.length;
    for (const JsonNode* key = &object + 1; key != end; key += 1 + nodeCount(key[1])) {
        visit(textOf(key[0]), key[1]);
    }
}

/// Most keys differ in length or in their first letter.
bool isSameKey(std::string_view name, std::string_view key) {
    return name.size() == key.size() &&
           (key.empty() || (name.front() == key.front() && std::memcmp(name.data(), key.data(), key.size()) == 0));
}

/// The last member of that key; null when there is none.
const JsonNode* findMember(const JsonNode& object, std::string_view key) {
    const JsonNode* found = nullptr;
    forEachMember(object, [&](std::string_view name, const JsonNode& value) {
        if (isSameKey(name, key)) {
            found = &value;
        }
    });
    return found;
}

template <class Visit>
void forEachElement(const JsonNode& array, Visit visit) {
    const JsonNode* const end = &array + array.length;
    for (const JsonNode* element = &array + 1; element != end; element += nodeCount(*element)) {
        visit(*element);
    }
}

std::optional<std::int64_t> integerOf(std::string_view number) {
    const char* const end = number.data() + number.size();
    std::int64_t integer = 0;
    if (number.find_first_of(".eE") == std::string_view::npos) {
        const auto result = std::from_chars(number.data(), end, integer);
        return result.ec == std::errc() ? std::optional(integer) : std::nullopt;
    }
    // 2^63, exactly: the least number that no longer fits.
    constexpr double bound = 9223372036854775808.0;
    double value = 0;
    const auto result = std::from_chars(number.data(), end, value);
    if (result.ec != std::errc() || value < -bound || value >= bound) {
        return std::nullopt;
    }
    integer = static_cast<std::int64_t>(value);
    return static_cast<double>(integer) == value ? std::optional(integer) : std::nullopt;
}

JsonTree treeOf(const JsonNode& node, UnescapedTexts& texts) {
    switch (node.kind) {
    case Kind::object: {
        JsonTree::Object members;
        forEachMember(node, [&](std::string_view key, const JsonNode& value) {
            members.insert_or_assign(std::string(key), treeOf(value, texts));
        });
        return {std::move(members)};
    }
    case Kind::array: {
        JsonTree::Array elements;
        forEachElement(node, [&](const JsonNode& element) { elements.push_back(treeOf(element, texts)); });
        return {std::move(elements)};
    }
    case Kind::text:
    case Kind::escapedText:
        return {std::string(texts.of(node))};
    case Kind::number:
        return {JsonNumber{std::string(textOf(node))}};
    case Kind::yes:
    case Kind::no:
        return {node.kind == Kind::yes};
    case Kind::null:
        break;
    }
    return {};
}

} // namespace

std::optional<JsonValue> JsonObject::value(std::string_view key) const {
    const JsonNode* value = findMember(*node_, key);
    return value == nullptr ? std::nullopt : std::optional(JsonValue(*value, *texts_));
}

std::optional<std::string_view> JsonObject::text(std::string_view key) const {
    const std::optional<JsonValue> found = value(key);
    return found ? found->text() : std::nullopt;
}

std::optional<JsonText> JsonObject::longText(std::string_view key) const {
    const JsonNode* value = findMember(*node_, key);
    return value == nullptr || !value->isText() ? std::nullopt : std::optional(JsonText(*value));
}

std::optional<bool> JsonObject::boolean(std::string_view key) const {
    const JsonNode* value = findMember(*node_, key);
    if (value == nullptr || (value->kind != Kind::yes && value->kind != Kind::no)) {
        return std::nullopt;
    }
    return value->kind == Kind::yes;
}

std::optional<std::int64_t> JsonObject::integer(std::string_view key) const {
    const JsonNode* value = findMember(*node_, key);
    return value == nullptr || value->kind != Kind::number ? std::nullopt : integerOf(textOf(*value));
}

std::optional<JsonObject> JsonObject::object(std::string_view key) const {
    const std::optional<JsonValue> found = value(key);
    return found ? found->object() : std::nullopt;
}

std::optional<std::vector<JsonObject>> JsonObject::objects(std::string_view key) const {
    const std::optional<JsonValue> found = value(key);
    return found ? found->objects() : std::nullopt;
}

std::optional<std::vector<std::string_view>> JsonObject::texts(std::string_view key) const {
    const JsonNode* array = findMember(*node_, key);
    if (array == nullptr || array->kind != Kind::array) {
        return std::nullopt;
    }
    std::vector<std::string_view> texts;
    bool hasOthers = false;
    forEachElement(*array, [&](const JsonNode& element) {
        const auto text = JsonValue(element, *texts_).text();
        hasOthers |= !text;
        texts.push_back(text.value_or(""));
    });
    return hasOthers ? std::nullopt : std::optional(std::move(texts));
}

void JsonObject::findValues(const std::string_view* keys, std::optional<JsonValue>* values, std::size_t count) const {
    forEachMember(*node_, [&](std::string_view name, const JsonNode& value) {
        for (std::size_t i = 0; i < count; ++i) {
            if (isSameKey(name, keys[i])) {
                values[i].emplace(value, *texts_);
            }
        }
    });
}

std::map<std::string_view, JsonValue> JsonObject::members() const {
    std::map<std::string_view, JsonValue> members;
    forEachMember(*node_, [&](std::string_view key, const JsonNode& value) {
        members.insert_or_assign(key, JsonValue(value, *texts_));
    });
    return members;
}

std::optional<std::string_view> JsonValue::text() const {
    return node_->isText() ? std::optional(texts_->of(*node_)) : std::nullopt;
}

std::optional<JsonObject> JsonValue::object() const {
    return node_->kind == Kind::object ? std::optional(JsonObject(*node_, *texts_)) : std::nullopt;
}

std::optional<std::vector<JsonObject>> JsonValue::objects() const {
    if (node_->kind != Kind::array) {
        return std::nullopt;
    }
    std::vector<JsonObject> objects;
    bool hasOthers = false;
    forEachElement(*node_, [&](const JsonNode& element) {
        hasOthers |= element.kind != Kind::object;
        objects.emplace_back(element, *texts_);
    });
    return hasOthers ? std::nullopt : std::optional(std::move(objects));
}

std::string JsonValue::prettyText() const {
    return prettyJson(treeOf(*node_, *texts_));
}

} // namespace platform
