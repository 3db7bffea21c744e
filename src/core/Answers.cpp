#include "core/Answers.h"

#include "platform/Streams.h"

namespace orvane {

namespace {

void passOn(ServiceRequest request) {
    const ServiceReply reply =
        sendServiceRequest(std::move(request), [](std::string_view piece) { platform::writeStandardOutput(piece); });
    failOnErrorStatus(reply);
    printRawResponse(reply.data);
}

} // namespace

void printRawResponse(std::string_view data) {
    platform::writeStandardOutput({data, "\n"});
}

void passOnGet(std::string path, std::chrono::seconds timeout) {
    passOn({.method = "GET", .path = std::move(path), .timeout = timeout});
}

void passOnPostJSON(std::string path, JsonBody body, std::chrono::seconds timeout) {
    passOn({.method = "POST", .path = std::move(path), .json = std::move(body).finish(), .timeout = timeout});
}

void passOnDelete(std::string path, std::chrono::seconds timeout) {
    passOn({.method = "DELETE", .path = std::move(path), .timeout = timeout});
}

} // namespace orvane
