// What a client asks, free of the HTTP library.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <boost/json/object.hpp>

namespace sample {

struct Request {
    std::string method;
    std::vector<std::string> path; ///< The path's words between the slashes, decoded.
    std::map<std::string, std::string, std::less<>> query;
    boost::json::object body; ///< Empty when there is none.

    const std::string& id() const { return path.at(2); }

    // What the query says under a key.
    std::optional<std::string> text(std::string_view key) const;
    bool flag(std::string_view key) const;
    /// The number under `key`, or `fallback` when it is not there. Throws RequestError when it is no whole number.
    std::size_t number(std::string_view key, std::size_t fallback) const;
};

/// A refusal, thrown by whatever finds the reason.
struct RequestError : std::runtime_error {
    RequestError(unsigned statusCode, const std::string& message, boost::json::object more = {})
        : std::runtime_error(message), status(statusCode), details(std::move(more)) {}
    unsigned status;
    boost::json::object details; ///< What clients are told besides the message.
};

/// Takes a request apart. Throws RequestError when its body is no JSON object.
Request parseRequest(std::string_view method, std::string_view target, std::string_view body);

} // namespace sample
