#include "request.h"

#include <algorithm>
#include <charconv>

#include <boost/json.hpp>

#include "text.h"

namespace sample {

namespace json = boost::json;

namespace {

constexpr std::pair<unsigned, std::string_view> errorWords[] = {
    {403, "forbidden"}, {404, "not_found"}, {405, "method_not_allowed"}, {409, "conflict"}, {500, "internal_error"},
};

/// What stands before the first separator and what stands behind it.
std::pair<std::string_view, std::string_view> cut(std::string_view text, char separator) {
    const auto at = std::min(text.find(separator), text.size());
    return {text.substr(0, at), text.substr(std::min(at + 1, text.size()))};
}

std::string percentDecoded(std::string_view encoded) {
    std::string decoded;
    for (std::size_t at = 0; at < encoded.size(); ++at) {
        if (encoded[at] != '%') {
            decoded += encoded[at];
            continue;
        }
        unsigned char byte = 0;
        const std::string_view digits = encoded.substr(at + 1, 2);
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
        if (error != std::errc() || digits.size() != 2 || end != digits.data() + 2) {
            throw RequestError(400, "The address holds a '%' without two hexadecimal digits behind it.");
        }
        decoded += static_cast<char>(byte);
        at += 2;
    }
    if (!isUtf8(decoded)) {
        throw RequestError(400, "The address is not valid UTF-8.");
    }
    return decoded;
}

} // namespace

Request parseRequest(std::string_view method, std::string_view target, std::string body) {
    Request request{.method = std::string(method), .path = {}, .query = {}, .body = std::move(body)};
    if (!target.starts_with('/')) {
        throw RequestError(400, "The address does not begin with a slash.");
    }
    const auto [path, query] = cut(target.substr(1), '?');
    for (const std::string_view word : split(path, '/')) {
        request.path.push_back(percentDecoded(word));
    }
    for (const std::string_view pair : split(query, '&')) {
        const auto [key, value] = cut(pair, '=');
        request.query.emplace_back(percentDecoded(key), percentDecoded(value));
    }
    return request;
}

std::optional<std::string> Request::text(std::string_view key) const {
    for (const auto& [name, value] : query) {
        if (name == key) {
            return value;
        }
    }
    return std::nullopt;
}

bool Request::flag(std::string_view key) const {
    const std::string given = text(key).value_or("false");
    if (given != "true" && given != "false") {
        throw RequestError(400, std::string(key) + " must be true or false.");
    }
    return given == "true";
}

std::size_t Request::number(std::string_view key, std::size_t fallback, std::size_t smallest,
                            std::size_t largest) const {
    const auto given = text(key);
    if (!given) {
        return fallback;
    }
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(given->data(), given->data() + given->size(), number);
    if (error != std::errc() || end != given->data() + given->size() || number < smallest || number > largest) {
        throw RequestError(400, std::string(key) + " must be a whole number from " + std::to_string(smallest) + " to " +
                                    std::to_string(largest) + ".");
    }
    return number;
}

Response success(const json::object& body) {
    return {.status = 200, .body = json::serialize(body), .allow = ""};
}

Response refusal(unsigned status, std::string_view message) {
    const auto* known = std::ranges::find(errorWords, status, [](const auto& entry) { return entry.first; });
    const std::string_view error = known == std::end(errorWords) ? "bad_request" : known->second;
    return {
        .status = status, .body = json::serialize(json::object{{"error", error}, {"message", message}}), .allow = ""};
}

} // namespace sample
