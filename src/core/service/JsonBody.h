// Compact JSON for the bodies of requests.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/CommandModel.h"

namespace orvane {

/// A JSON object under construction, held as its own compact text: `set` for what is always sent, `setIfGiven` for what
/// is sent when the user gave it. Keys are expected once each; texts are UTF-8.
class JsonBody {
public:
    JsonBody& set(std::string_view key, std::string_view value);
    JsonBody& set(std::string_view key, const char* value) { return set(key, std::string_view(value)); }
    JsonBody& set(std::string_view key, bool value);
    JsonBody& set(std::string_view key, std::int64_t value);
    JsonBody& set(std::string_view key, const std::vector<std::string>& values);
    JsonBody& set(std::string_view key, const JsonBody& value);
    /// A member of a closed set goes in as its raw text.
    template <argumentparser::ClosedSetMember Member>
    JsonBody& set(std::string_view key, Member value) {
        return set(key, argumentparser::rawText(value));
    }
    /// `bytes` go in as a text in base64.
    JsonBody& setBase64(std::string_view key, std::string_view bytes);
    JsonBody& setNull(std::string_view key);
    /// `json` is a value in JSON, such as one that the user wrote; it goes in byte for byte.
    JsonBody& setJson(std::string_view key, std::string_view json);

    /// The value of an input that always has one.
    template <class T>
    JsonBody& set(std::string_view key, const argumentparser::DecodedInput<T>& input) {
        return set(key, input.get());
    }
    /// The value of an optional input, left out when it wasn't given.
    template <class T>
    JsonBody& setIfGiven(std::string_view key, const argumentparser::DecodedInput<std::optional<T>>& input) {
        return input ? set(key, *input) : *this;
    }
    /// The values of a list, left out when it has none.
    JsonBody& setIfGiven(std::string_view key, const argumentparser::DecodedInput<std::vector<std::string>>& input) {
        return input.get().empty() ? *this : set(key, input.get());
    }

    /// Whether nothing was set.
    bool isEmpty() const { return text_.size() == 1; }

    /// The object's text, which is moved out.
    std::string finish() &&;

private:
    void appendKey(std::string_view key);
    std::string text_ = "{";
};

} // namespace orvane
