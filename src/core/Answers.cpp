#include "core/Answers.h"

#include "platform/Streams.h"

namespace orvane {

namespace {

void passOn(const ServiceReply& reply) {
    failOnErrorStatus(reply);
    printRawResponse(reply.data);
}

} // namespace

void printRawResponse(std::string_view data) {
    platform::writeStandardOutput({data, "\n"});
}

void passOnGet(std::string path, std::chrono::seconds timeout) {
    passOn(serviceGet(std::move(path), timeout));
}

void passOnPostJSON(std::string path, JsonBody body, std::chrono::seconds timeout) {
    passOn(servicePostJSON(std::move(path), std::move(body), timeout));
}

void passOnDelete(std::string path, std::chrono::seconds timeout) {
    passOn({serviceDelete(std::move(path), timeout), std::nullopt});
}

} // namespace orvane
