// One blocking HTTP exchange with a service on the loopback interface.
#pragma once

#include <cstdint>
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
    double idleTimeout = 30;      ///< Seconds without a byte moving, connecting included, until giving up.
};

struct HttpResponse {
    int status = 0;
    std::string body;
};

/// Why an exchange failed. There are no other outcomes.
enum class HttpFailure {
    cannotConnect,  ///< Every address of the host refused.
    timedOut,       ///< Nothing moved for the request's idle timeout.
    connectionLost, ///< Closed or reset before the whole answer was in.
    other,          ///< An answer that is no HTTP, and whatever else; `what` describes it.
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

/// Sends `request` and waits for the whole answer. Interim 1xx answers are skipped. Redirects are followed at most
/// 16 times, and only to plain HTTP on loopback; a redirect elsewhere is returned as it came. The environment's proxy
/// settings are ignored, and no header is sent beyond Host, Content-Type and Content-Length.
/// Throws HttpError.
HttpResponse sendHttpRequest(HttpRequest request);

} // namespace platform
