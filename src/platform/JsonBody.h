// Compact JSON for the bodies of requests.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// A JSON object under construction, held as its own compact text. Keys are expected once each; texts are UTF-8.
class JsonBody {
public:
    JsonBody& set(std::string_view key, std::string_view value);
    JsonBody& set(std::string_view key, const char* value) { return set(key, std::string_view(value)); }
    JsonBody& set(std::string_view key, bool value);
    JsonBody& set(std::string_view key, std::int64_t value);
    JsonBody& set(std::string_view key, const std::vector<std::string>& values);
    JsonBody& set(std::string_view key, const JsonBody& value);
    /// `json` is valid JSON, inserted byte for byte.
    JsonBody& setRaw(std::string_view key, std::string_view json);

    template <class Value>
    JsonBody& setIfGiven(std::string_view key, const std::optional<Value>& value) {
        return value ? set(key, *value) : *this;
    }

    JsonBody& setIfNotEmpty(std::string_view key, const std::vector<std::string>& values) {
        return values.empty() ? *this : set(key, values);
    }

    /// The object's text, which is moved out.
    std::string finish() &&;
    std::string text() const;

private:
    void appendKey(std::string_view key);
    std::string text_ = "{";
};

} // namespace platform
