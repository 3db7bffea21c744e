#include "request.h"

#include "text.h"

#include <charconv>

namespace sample {

namespace {

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
        if (error != std::errc() || digits.size() != 2 || end != digits.data() + 2)
            throw RequestError(400, "The address holds a '%' without two hexadecimal digits behind it.");
        decoded += static_cast<char>(byte);
        at += 2;
    }
    if (!isUtf8(decoded))
        throw RequestError(400, "The address is not valid UTF-8.");
    return decoded;
}

} // namespace

std::vector<std::string_view> splitPath(std::string_view path) {
    std::vector<std::string_view> found;
    while (!path.empty()) {
        path.remove_prefix(1);
        const auto end = std::min(path.find('/'), path.size());
        found.push_back(path.substr(0, end));
        path.remove_prefix(end);
    }
    return found;
}

Request parseRequest(std::string_view method, std::string_view target, std::string body) {
    Request request{.method = std::string(method), .path = {}, .query = {}, .body = std::move(body), .captures = {}};
    const auto mark = std::min(target.find('?'), target.size());
    if (target.empty() || target.front() != '/')
        throw RequestError(400, "The address does not begin with a slash.");
    for (const std::string_view word : splitPath(target.substr(0, mark)))
        request.path.push_back(percentDecoded(word));
    std::string_view rest = target.substr(std::min(mark + 1, target.size()));
    while (!rest.empty()) {
        const auto end = std::min(rest.find('&'), rest.size());
        const std::string_view pair = rest.substr(0, end);
        const auto equals = std::min(pair.find('='), pair.size());
        request.query.emplace_back(percentDecoded(pair.substr(0, equals)),
                                   percentDecoded(pair.substr(std::min(equals + 1, pair.size()))));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return request;
}

std::optional<std::string> Request::text(std::string_view key) const {
    for (const auto& [name, value] : query)
        if (name == key)
            return value;
    return std::nullopt;
}

std::size_t Request::number(std::string_view key, std::size_t fallback, std::size_t smallest,
                            std::size_t largest) const {
    const auto given = text(key);
    if (!given)
        return fallback;
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(given->data(), given->data() + given->size(), number);
    if (error != std::errc() || end != given->data() + given->size() || number < smallest || number > largest)
        throw RequestError(400, std::string(key) + " must be a whole number from " + std::to_string(smallest) + " to " +
                                    std::to_string(largest) + ".");
    return number;
}

} // namespace sample
