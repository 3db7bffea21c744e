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
    appendKey(key);
    text_ += '[';
    for (const std::string& value : values) {
        text_ += &value == &values.front() ? "" : ",";
        platform::appendJsonQuoted(text_, value);
    }
    text_ += ']';
    return *this;
}

JsonBody& JsonBody::set(std::string_view key, const JsonBody& value) {
    return setJson(key, value.text_ + '}');
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

std::string JsonBody::finish() && {
    text_ += '}';
    return std::move(text_);
}

} // namespace orvane
