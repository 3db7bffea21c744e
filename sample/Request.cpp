#include "Request.h"

#include <algorithm>
#include <charconv>

#include <boost/json.hpp>

#include "library/Text.h"

namespace sample {

namespace json = boost::json;

namespace {

/// What stands before the first separator and what stands behind it.
std::pair<std::string_view, std::string_view> cut(std::string_view text, char separator) {
    const auto at = std::min(text.find(separator), text.size());
    return {text.substr(0, at), text.substr(std::min(at + 1, text.size()))};
}

std::string percentDecoded(std::string_view encoded) {
    std::string decoded;
    for (std::size_t at = 0; at < encoded.size(); ++at) {
        const std::string_view digits = encoded.substr(at + 1, 2);
        unsigned char byte = 0;
        if (encoded[at] == '%' && std::from_chars(digits.begin(), digits.end(), byte, 16).ptr == digits.begin() + 2) {
            decoded += static_cast<char>(byte);
            at += 2;
        } else {
            decoded += encoded[at];
        }
    }
    return decoded;
}

json::object parsedBody(std::string_view body) {
    json::error_code error;
    const json::value value = json::parse(body, error);
    if (error || !value.is_object()) {
        throw RequestError(400, "The body must be a JSON object.");
    }
    return value.get_object();
}

} // namespace

Request parseRequest(std::string_view method, std::string_view target, std::string_view body) {
    Request request;
    request.method = method;
    const auto [path, query] = cut(target, '?');
    for (const std::string& word : words(path, "/")) {
        request.path.push_back(percentDecoded(word));
    }
    for (const std::string& pair : words(query, "&")) {
        const auto [key, value] = cut(pair, '=');
        request.query.emplace(percentDecoded(key), percentDecoded(value));
    }
    if (!body.empty()) {
        request.body = parsedBody(body);
    }
    return request;
}

std::optional<std::string> Request::text(std::string_view key) const {
    const auto found = query.find(key);
    return found == query.end() ? std::nullopt : std::optional(found->second);
}

bool Request::flag(std::string_view key) const {
    return text(key) == "true";
}

std::size_t Request::number(std::string_view key, std::size_t fallback) const {
    const auto given = text(key);
    if (!given) {
        return fallback;
    }
    std::size_t number = 0;
    const char* end = given->data() + given->size();
    const auto [stop, error] = std::from_chars(given->data(), end, number);
    if (error != std::errc() || stop != end) {
        throw RequestError(400, std::string(key) + " must be a whole number, and not negative.");
    }
    return number;
}

} // namespace sample
