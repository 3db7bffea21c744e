// The parsing of one HTTP response from the bytes of its connection.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "platform/http/HttpClient.h"

namespace platform {

/// Fed with what a connection brings, finds the final response in it. Interim responses are skipped.
class HttpResponseReader {
public:
    /// `sink`, which must outlive the reader, has the body as with sendHttpRequest.
    explicit HttpResponseReader(const BodySink& sink);
    ~HttpResponseReader();
    HttpResponseReader(const HttpResponseReader&) = delete;
    HttpResponseReader& operator=(const HttpResponseReader&) = delete;

    /// Where to put the bytes that are received next. Valid until the next call of any operation.
    std::span<char> room();
    /// Reads the first `size` bytes of the last room. Throws HttpError, and what the sink throws.
    void received(std::size_t size);
    /// The connection was closed in order. Throws HttpError unless that completes the response.
    void ended();

    /// The status of the final response, as soon as its head is in; 0 until then.
    int status() const;
    /// Whether the response is complete; there is nothing more to receive then.
    bool isWhole() const;
    /// Whether only the end of the connection ends the body.
    bool endsWithConnection() const;

    /// The value of the Location header, if there is one.
    std::optional<std::string> takeLocation();
    /// The whole response. Leaves the reader without it.
    HttpResponse takeResponse();

private:
    struct State;
    std::unique_ptr<State> state_;
};

/// The connection was closed or reset before the response was complete.
HttpError connectionLost();

} // namespace platform
