#include "core/service/ServiceClient.h"

#include "core/output/Style.h"
#include "core/service/CLIError.h"
#include "platform/files/Streams.h"
#include "platform/json/Json.h"
#include "platform/text/TerminalText.h"
#include "platform/text/Text.h"

namespace orvane {

namespace {

constexpr std::string_view localServiceHost = "localhost";
constexpr std::uint16_t localServicePort = 44360;
constexpr int firstErrorStatus = 400;

CLIError clientError(const platform::HttpError& error) {
    switch (error.failure()) {
    case platform::HttpFailure::cannotConnect:
        return CLIError::appNotRunning();
    case platform::HttpFailure::timedOut:
        return CLIError::requestTimedOut();
    case platform::HttpFailure::connectionLost:
        return CLIError::connectionInterrupted();
    case platform::HttpFailure::other:
        break;
    }
    return CLIError::communicationFailed(error.what());
}

std::string errorText(std::string_view data) {
    constexpr std::string_view unknown = "Request failed.";
    if (const auto document = platform::JsonDocument::parseObject(data)) {
        const platform::JsonObject object = document->object();
        const auto message = object.text("message");
        return std::string(message ? *message : object.text("error").value_or(unknown));
    }
    const std::string_view text = platform::isValidUtf8(data) ? platform::trimmed(data) : std::string_view();
    return std::string(text.empty() ? unknown : text);
}

} // namespace

ServiceReply sendServiceRequest(ServiceRequest request, const platform::BodySink& sink) {
    platform::HttpRequest http;
    http.method = request.method;
    http.host = localServiceHost;
    http.port = localServicePort;
    http.target = std::move(request.path);
    http.idleTimeout = request.timeout;
    if (request.json) {
        http.body = std::move(*request.json);
        http.contentType = "application/json";
    }
    try {
        platform::HttpResponse response = platform::sendHttpRequest(std::move(http), sink);
        return {std::move(response.body), response.status};
    } catch (const platform::HttpError& error) {
        throw clientError(error);
    }
}

ServiceReply serviceGet(std::string path, std::chrono::seconds timeout) {
    return sendServiceRequest({.method = "GET", .path = std::move(path), .timeout = timeout});
}

ServiceReply servicePostJSON(std::string path, JsonBody body, std::chrono::seconds timeout) {
    return sendServiceRequest({"POST", std::move(path), std::move(body).finish(), timeout});
}

std::string serviceDelete(std::string path, std::chrono::seconds timeout) {
    ServiceReply reply = sendServiceRequest({.method = "DELETE", .path = std::move(path), .timeout = timeout});
    failOnErrorStatus(reply);
    return std::move(reply.data);
}

bool isRefusal(const ServiceReply& reply) {
    return reply.status && *reply.status >= firstErrorStatus;
}

void failOnErrorStatus(const ServiceReply& reply) {
    if (isRefusal(reply)) {
        reportErrorResponse(reply.data);
        throw ExitCode{ExitCode::failure};
    }
}

void reportErrorResponse(std::string_view data) {
    const std::string text = errorText(data);
    const bool isTerminal = platform::isTerminal(platform::Stream::error);
    platform::writeStandardError(isTerminal
                                     ? withStyle("error:", Style::red) + " " + platform::terminalText(text) + "\n"
                                     : "error: " + text + "\n");
}

} // namespace orvane
