#include "core/Answers.h"

#include "platform/Streams.h"

namespace orvane {

void printRawResponse(std::string_view data) {
    platform::writeStandardOutput({data, "\n"});
}

void passOn(ServiceRequest request, EmptyAnswer empty, Refusal refusal) {
    bool isPassedOn = false;
    const ServiceReply reply = sendServiceRequest(std::move(request), [&](std::string_view piece) {
        isPassedOn = true;
        platform::writeStandardOutput(piece);
    });
    if (refusal == Refusal::passedOn && isRefusal(reply)) {
        platform::writeStandardError(reply.data + "\n");
        throw ExitCode{ExitCode::failure};
    }
    failOnErrorStatus(reply);
    if (isPassedOn || !reply.data.empty() || empty == EmptyAnswer::line) {
        printRawResponse(reply.data);
    }
}

void passOnGet(std::string path, std::chrono::seconds timeout) {
    passOn({.method = "GET", .path = std::move(path), .timeout = timeout});
}

void passOnPostJSON(std::string path, JsonBody body, std::chrono::seconds timeout) {
    passOn({.method = "POST", .path = std::move(path), .json = std::move(body).finish(), .timeout = timeout});
}

void passOnPutJSON(std::string path, JsonBody body, std::chrono::seconds timeout) {
    passOn({.method = "PUT", .path = std::move(path), .json = std::move(body).finish(), .timeout = timeout});
}

void passOnDeleteJSON(std::string path, JsonBody body, std::chrono::seconds timeout) {
    passOn({.method = "DELETE", .path = std::move(path), .json = std::move(body).finish(), .timeout = timeout});
}

void passOnDelete(std::string path, std::chrono::seconds timeout) {
    passOn({.method = "DELETE", .path = std::move(path), .timeout = timeout});
}

} // namespace orvane
