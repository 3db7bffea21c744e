#include "platform/JsonBody.h"

#include <boost/json/serialize.hpp>
#include <boost/json/string.hpp>

namespace platform {

namespace {

void appendQuoted(std::string& text, std::string_view value) {
    text += boost::json::serialize(boost::json::string_view(value.data(), value.size()));
}

} // namespace

void JsonBody::appendKey(std::string_view key) {
    if (text_.size() > 1) {
        text_ += ',';
    }
    appendQuoted(text_, key);
    text_ += ':';
}

JsonBody& JsonBody::set(std::string_view key, std::string_view value) {
    appendKey(key);
    appendQuoted(text_, value);
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
        appendQuoted(text_, value);
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
