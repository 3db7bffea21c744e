#include "platform/HttpClient.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>

#include <sys/uio.h>

#include "platform/HttpResponseReader.h"
#include "platform/LoopbackSocket.h"
#include "platform/Redirect.h"

namespace platform {

namespace {

constexpr int redirectLimit = 16;
constexpr int leastRefusingStatus = 300;
constexpr std::chrono::milliseconds unreadUploadLimit = std::chrono::seconds(1);

HttpError failureOf(const std::error_code& error) {
    if (error == std::errc::timed_out) {
        return {HttpFailure::timedOut, "the service did not answer in time"};
    }
    return {HttpFailure::other, "the exchange with the service failed (" + error.message() + ")"};
}

bool isReset(const std::error_code& error) {
    return error == std::errc::connection_reset || error == std::errc::broken_pipe ||
           error == std::errc::connection_aborted;
}

std::string requestHead(const HttpRequest& request, const HttpLocation& location) {
    std::string head;
    head.append(request.method).append(" ").append(location.target).append(" HTTP/1.1\r\nHost: ");
    head.append(hostAndPort(location.host, location.port));
    if (!request.contentType.empty()) {
        head.append("\r\nContent-Type: ").append(request.contentType);
    }
    if (!request.body.empty()) {
        head.append("\r\nContent-Length: ").append(std::to_string(request.body.size()));
    }
    return head.append("\r\n\r\n");
}

/// What is still to be sent of a request. Refers to its head and its body.
class Upload {
public:
    Upload(std::string_view head, std::string_view body) : pieces_{piece(head), piece(body)} {}

    bool isSent() const { return pieces_[0].iov_len + pieces_[1].iov_len == 0; }

    void sendSome(LoopbackSocket& socket, std::error_code& failure) {
        std::size_t sent = socket.send(pieces_.data(), pieces_.size(), failure);
        for (iovec& piece : pieces_) {
            const std::size_t size = std::min(sent, piece.iov_len);
            piece.iov_base = static_cast<char*>(piece.iov_base) + size;
            piece.iov_len -= size;
            sent -= size;
        }
    }

private:
    static iovec piece(std::string_view text) { return {const_cast<char*>(text.data()), text.size()}; }

    std::array<iovec, 2> pieces_;
};

/// One connection, with what it has brought so far.
class Exchange {
public:
    Exchange(const HttpRequest& request, const HttpLocation& location, const BodySink& sink)
        : request_(request), location_(location), socket_(request.idleTimeout), response_(sink) {}

    /// The response is whole then.
    HttpResponseReader& run() {
        connect();
        send();
        while (!response_.isWhole()) {
            receive();
        }
        return response_;
    }

private:
    void connect() {
        std::error_code failure;
        socket_.connect(location_.host, location_.port, failure);
        if (!failure) {
            return;
        }
        if (failure == std::errc::timed_out) {
            throw failureOf(failure);
        }
        const std::string address = hostAndPort(location_.host, location_.port);
        if (failure == std::errc::connection_refused) {
            throw HttpError(HttpFailure::cannotConnect, "nothing answers at " + address);
        }
        throw HttpError(HttpFailure::other, "cannot connect to " + address + " (" + failure.message() + ")");
    }

    /// Sends the request until it is sent, or until the service has refused it or closed the connection: what it said
    /// counts then.
    void send() {
        const std::string head = requestHead(request_, location_);
        Upload upload(head, request_.body);
        std::error_code& failure = uploadFailure_;
        upload.sendSome(socket_, failure);
        if (!failure && !upload.isSent()) {
            socket_.sendWithoutDelay();
        }
        while (!failure && !upload.isSent() && !isRefused()) {
            if (response_.isWhole()) {
                socket_.waitToSend(unreadUploadLimit, failure);
            } else if (socket_.waitToSendOrReceive(failure)) {
                receive();
                continue;
            } else if (failure) {
                throw failureOf(failure);
            }
            if (!failure) {
                upload.sendSome(socket_, failure);
            }
        }
    }

    void receive() {
        const std::span<char> room = response_.room();
        std::error_code failure;
        const std::size_t size = socket_.receive(room.data(), room.size(), failure);
        if (!failure && size == 0) {
            failure = uploadFailure_; // the system reports a reset only once
        }
        if (size > 0) {
            response_.received(size);
        } else if (!failure || (isReset(failure) && endsWithReset())) {
            response_.ended();
        } else {
            throw isReset(failure) ? connectionLost() : failureOf(failure);
        }
    }

    bool isRefused() const { return response_.status() >= leastRefusingStatus; }

    /// A service that closes with a request half read resets the connection: it cannot end its response otherwise.
    bool endsWithReset() const { return response_.endsWithConnection() && !request_.body.empty(); }

    const HttpRequest& request_;
    const HttpLocation& location_;
    LoopbackSocket socket_;
    HttpResponseReader response_;
    std::error_code uploadFailure_;
};

bool isRedirect(int status) {
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

void becomeGet(HttpRequest& request) {
    request.method = "GET";
    request.body.clear();
    request.contentType = {};
}

} // namespace

HttpResponse sendHttpRequest(HttpRequest request, const BodySink& sink) {
    HttpLocation location{std::string(request.host), request.port, std::move(request.target)};
    for (int redirects = 0;; ++redirects) {
        Exchange exchange(request, location, sink);
        HttpResponseReader& response = exchange.run();
        const int status = response.status();
        std::optional<HttpLocation> next;
        if (const auto reference = response.takeLocation(); reference && isRedirect(status)) {
            next = resolveRedirect(location, *reference);
        }
        if (!next) {
            return response.takeResponse();
        }
        if (redirects == redirectLimit) {
            throw HttpError(HttpFailure::other, "too many redirects");
        }
        if (status == 303 || (request.method == "POST" && (status == 301 || status == 302))) {
            becomeGet(request);
        }
        location = std::move(*next);
    }
}

} // namespace platform
