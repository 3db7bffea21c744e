#include "platform/JsonBody.h"

#include "platform/Json.h"

namespace platform {

void JsonBody::appendKey(std::string_view key) {
    if (text_.size() > 1) {
        text_ += ',';
    }
    appendJsonQuoted(text_, key);
    text_ += ':';
}

JsonBody& JsonBody::set(std::string_view key, std::string_view value) {
    appendKey(key);
    appendJsonQuoted(text_, value);
    return *this;
}

JsonBody& JsonBody::set(std::string_view key, bool value) {
    return setRaw(key, value ? "true" : "false");
}

JsonBody& JsonBody::set(std::string_view key, std::int64_t value) {
    return setRaw(key, std::to_string(value));
}

JsonBody& JsonBody::set(std::string_view key, const std::vector<std::string>& values) {
    appendKey(key);
    text_ += '[';
    for (const std::string& value : values) {
        if (&value != &values.front()) {
            text_ += ',';
        }
        appendJsonQuoted(text_, value);
    }
    text_ += ']';
    return *this;
}

JsonBody& JsonBody::set(std::string_view key, const JsonBody& value) {
    return setRaw(key, value.text());
}

JsonBody& JsonBody::setRaw(std::string_view key, std::string_view json) {
    appendKey(key);
    text_ += json;
    return *this;
}

std::string JsonBody::text() const {
    return text_ + '}';
}

std::string JsonBody::finish() && {
    text_ += '}';
    return std::move(text_);
}

} // namespace platform
