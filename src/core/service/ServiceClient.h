// The blocking client of the application's local service. No request carries a token, and none is retried.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "core/service/JsonBody.h"
#include "platform/http/HttpClient.h"

namespace orvane {

/// How long nothing may move before a command gives up waiting for the service.
inline constexpr std::chrono::seconds standardTimeout{30};

struct ServiceReply {
    std::string data;          ///< The whole body; may be empty.
    std::optional<int> status; ///< The HTTP status; absent when the answer was none of HTTP.
};

struct ServiceRequest {
    std::string_view method;
    std::string path; ///< Begins with "/api/", its query included and encoded.
    std::optional<std::string> json = {};
    std::chrono::seconds timeout = standardTimeout;
};

/// The one round trip under all operations below. With a `sink`, a successful answer above 4 MB goes there while it
/// comes in, and `data` is empty. Throws CLIError, and what `sink` throws.
ServiceReply sendServiceRequest(ServiceRequest request, const platform::BodySink& sink = {});

/// These leave the status to the caller, who calls failOnErrorStatus. Throw CLIError.
ServiceReply serviceGet(std::string path, std::chrono::seconds timeout = standardTimeout);
ServiceReply servicePostJSON(std::string path, JsonBody body, std::chrono::seconds timeout = standardTimeout);

/// Fails on an error status itself and gives the body. Throws CLIError, or ExitCode behind a reported error.
std::string serviceDelete(std::string path, std::chrono::seconds timeout = standardTimeout);

/// Whether the service refused: an answer of status 400 or above.
bool isRefusal(const ServiceReply& reply);

/// Reports an answer of status 400 or above and throws ExitCode 1; any other passes.
void failOnErrorStatus(const ServiceReply& reply);

/// Prints the text of a failed answer on standard error: its "message", its "error", or the body's own text.
void reportErrorResponse(std::string_view data);

} // namespace orvane
