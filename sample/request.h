// What a client asks and what it is answered, free of the HTTP library.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <boost/json/object.hpp>

namespace sample {

struct Request {
    std::string method;
    std::vector<std::string> path; ///< The path's words between the slashes, decoded.
    std::vector<std::pair<std::string, std::string>> query;
    std::string body;

    const std::string& id() const { return path.at(2); }

    // What the query says under a key. A value that is not of the kind asked for throws RequestError.
    std::optional<std::string> text(std::string_view key) const;
    bool flag(std::string_view key) const;

    /// The number under `key`, or `fallback` when it is not there.
    std::size_t number(std::string_view key, std::size_t fallback, std::size_t smallest, std::size_t largest) const;
};

struct Response {
    unsigned status = 200;
    std::string body;
    std::string allow; ///< The methods that the path knows, when it does not know the one asked for.
};

Response success(const boost::json::object& body);
Response refusal(unsigned status, std::string_view message);

/// A refusal, thrown by whatever finds the reason.
struct RequestError : std::runtime_error {
    RequestError(unsigned statusCode, const std::string& message) : std::runtime_error(message), status(statusCode) {}
    unsigned status;
};

/// Takes a request line apart. Throws RequestError when its escapes are wrong or do not give UTF-8.
Request parseRequest(std::string_view method, std::string_view target, std::string body);

} // namespace sample
