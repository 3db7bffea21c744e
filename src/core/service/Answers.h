// What becomes of the service's answers: passed on as they came, or shown in the tool's own form.
#pragma once

#include <string>
#include <string_view>

#include "core/service/ServiceClient.h"
#include "platform/json/Json.h"

namespace orvane {

/// Writes `data` and one line feed to standard output, byte for byte, and at a terminal in a form that is harmless:
/// the same JSON, or shown as text.
void printRawResponse(std::string_view data);

/// What an empty answer that is passed on becomes.
enum class EmptyAnswer { line, nothing };

/// What a refusal becomes on standard error: a line of the tool's own, or the service's bytes and a line feed.
enum class Refusal { reported, passedOn };

/// Makes the request and passes its answer on to standard output, one above 4 MB while it comes in, so that no command
/// holds what it only prints. Throws CLIError, or ExitCode behind a refusal.
void passOn(ServiceRequest request, EmptyAnswer empty = EmptyAnswer::line, Refusal refusal = Refusal::reported);

/// The same for the usual requests.
void passOnGet(std::string path, std::chrono::seconds timeout = standardTimeout);
void passOnPostJSON(std::string path, JsonBody body, std::chrono::seconds timeout = standardTimeout);
void passOnPutJSON(std::string path, JsonBody body, std::chrono::seconds timeout = standardTimeout);
void passOnDeleteJSON(std::string path, JsonBody body, std::chrono::seconds timeout = standardTimeout);
void passOnDelete(std::string path, std::chrono::seconds timeout = standardTimeout);

/// Gives the object that a successful answer holds to `render`. One that holds none is no failure: it is passed on.
template <class Render>
void renderObject(std::string_view data, Render render) {
    if (const auto document = platform::JsonDocument::parseObject(data)) {
        render(document->object());
    } else {
        printRawResponse(data);
    }
}

/// The same for an answer whose status nobody has looked at; an error status is reported and throws ExitCode.
template <class Render>
void renderObject(const ServiceReply& reply, Render render) {
    failOnErrorStatus(reply);
    renderObject(reply.data, render);
}

} // namespace orvane
