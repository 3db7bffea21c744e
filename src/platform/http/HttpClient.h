// One blocking HTTP exchange with a service on the loopback interface.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace platform {

/// A request to a plain-HTTP service. `host` is "localhost", which stands for ::1 and then 127.0.0.1, or a loopback
/// address, an IPv6 one in brackets; `target` is the path with its query, already encoded.
struct HttpRequest {
    std::string_view method; ///< "GET", "POST", …
    std::string_view host;
    std::uint16_t port = 80;
    std::string target;
    std::string body;             ///< Sent with a Content-Length when not empty.
    std::string_view contentType; ///< The Content-Type header; empty sends none.
    /// How long nothing may move, connecting included, until giving up.
    std::chrono::milliseconds idleTimeout = std::chrono::seconds(30);
};

struct HttpResponse {
    int status = 0;
    std::string body;
    bool bodyPassedOn = false; ///< The sink had the body; `body` is empty.
};

/// Takes the pieces of a body, in order, as they come in. None is empty. Whatever it throws ends the exchange and
/// reaches the caller of sendHttpRequest unchanged.
using BodySink = std::function<void(std::string_view)>;

/// The largest body that is never passed on, in bytes.
inline constexpr std::size_t passOnThreshold = std::size_t{4} << 20U;

/// Why an exchange failed. There are no other outcomes.
enum class HttpFailure {
    cannotConnect,  ///< Every address of the host refused.
    timedOut,       ///< Nothing moved for the request's idle timeout.
    connectionLost, ///< Closed or reset before the whole response was in.
    other,          ///< A response that is no HTTP, and whatever else; `what` describes it.
};

/// `what` is a short English description, fit to be shown to the user.
class HttpError : public std::runtime_error {
public:
    HttpError(HttpFailure failure, const std::string& description)
        : std::runtime_error(description), failure_(failure) {}
    HttpFailure failure() const { return failure_; }

private:
    HttpFailure failure_;
};

/// Sends `request` and waits for the whole response. Interim 1xx responses are skipped. Redirects are followed at most
/// 16 times, and only to plain HTTP on loopback; a redirect elsewhere is returned as it came. The environment's proxy
/// settings are ignored, and no header is sent beyond Host, Content-Type and Content-Length.
///
/// A response may come before all of the request is sent. The rest is sent for as long as the service takes it:
/// - One of status 2xx counts once it is whole, even if the service then closes the connection or, for a second, takes
///   nothing. Whoever accepts a request wants the rest of it.
/// - One of status 300 or above ends the sending once it is whole.
/// - One of status 400 or above need not become whole. When the connection ends, when nothing moves for a second, and
///   three seconds after its head at the first halt, it is returned with what has come of its body.
///
/// A response without a length ends with the connection; that may be a reset when the request has a body, for a service
/// that closes with a part of it unread can't do otherwise.
///
/// With a `sink`, the body of a 2xx response goes to it while it comes in, provided that it is larger than
/// passOnThreshold; any other body is held whole and returned. If the connection is then lost, the sink has had what
/// came before the error is thrown.
///
/// Throws HttpError, and what `sink` throws.
HttpResponse sendHttpRequest(HttpRequest request, const BodySink& sink = {});

} // namespace platform
