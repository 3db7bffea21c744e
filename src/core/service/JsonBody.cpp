#include "core/service/JsonBody.h"

#include "platform/json/Json.h"
#include "platform/text/Base64.h"

namespace orvane {

void JsonBody::appendKey(std::string_view key) {
    if (!isEmpty()) {
        text_ += ',';
    }
    platform::appendJsonQuoted(text_, key);
    text_ += ':';
}

JsonBody& JsonBody::set(std::string_view key, std::string_view value) {
    appendKey(key);
    platform::appendJsonQuoted(text_, value);
    return *this;
}

JsonBody& JsonBody::set(std::string_view key, bool value) {
    return setJson(key, value ? "true" : "false");
}

JsonBody& JsonBody::set(std::string_view key, std::int64_t value) {
    return setJson(key, std::to_string(value));
}

JsonBody& JsonBody::set(std::string_view key, const std::vector<std::string>& values) {
    return setList(key, values, [this](const std::string& value) { platform::appendJsonQuoted(text_, value); });
}

JsonBody& JsonBody::set(std::string_view key, const JsonBody& value) {
    return setJson(key, value.text_ + '}');
}

JsonBody& JsonBody::set(std::string_view key, const std::vector<JsonBody>& values) {
    return setList(key, values, [this](const JsonBody& value) { text_.append(value.text_).append("}"); });
}

JsonBody& JsonBody::setBase64(std::string_view key, std::string_view bytes) {
    appendKey(key);
    text_ += '"';
    platform::appendBase64(text_, bytes);
    text_ += '"';
    return *this;
}

JsonBody& JsonBody::setNull(std::string_view key) {
    return setJson(key, "null");
}

JsonBody& JsonBody::setJson(std::string_view key, std::string_view json) {
    appendKey(key);
    text_ += json;
    return *this;
}

template <class Values, class Append>
JsonBody& JsonBody::setList(std::string_view key, const Values& values, Append append) {
    appendKey(key);
    text_ += '[';
    bool isFirst = true;
    for (const auto& value : values) {
        if (!isFirst) {
            text_ += ',';
        }
        isFirst = false;
        append(value);
    }
    text_ += ']';
    return *this;
}

std::string JsonBody::finish() && {
    text_ += '}';
    return std::move(text_);
}

} // namespace orvane
