#include "platform/http/HttpClient.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <span>
#include <utility>

#include <sys/uio.h>

#include "platform/http/HttpResponseReader.h"
#include "platform/http/LoopbackSocket.h"
#include "platform/http/Redirect.h"

namespace platform {

namespace {

constexpr int redirectLimit = 16;
constexpr int leastUnacceptingStatus = 300;
constexpr int leastRefusingStatus = 400;
constexpr std::size_t sentAtOnce = std::size_t{1} << 20U;
constexpr std::chrono::milliseconds answeredIdleLimit = std::chrono::seconds(1);
constexpr std::chrono::milliseconds refusalLimit = std::chrono::seconds(3);

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

    /// Not all at once, even where the service takes it: it may have refused the request meanwhile.
    void sendSome(LoopbackSocket& socket, std::error_code& failure) {
        std::array<iovec, 2> pieces = pieces_;
        pieces[1].iov_len = std::min(pieces[1].iov_len, sentAtOnce);
        std::size_t sent = socket.send(pieces.data(), pieces.size(), failure);
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
        : request_(request), location_(location), head_(requestHead(request, location)), upload_(head_, request.body),
          response_(sink) {}

    /// The response is whole then, or a refusal of a request half sent whose body did not come.
    HttpResponseReader& run() {
        connect();
        try {
            send();
            while (!response_.isWhole()) {
                receive();
            }
        } catch (const HttpError& error) {
            if (!refusalEnd_ || error.failure() == HttpFailure::other) {
                throw;
            }
        }
        return response_;
    }

private:
    using Clock = std::chrono::steady_clock;

    void connect() {
        std::error_code failure;
        socket_.connect(location_.host, location_.port, request_.idleTimeout, failure);
        if (!failure) {
            return;
        }
        if (failure == std::errc::timed_out) {
            throw failureOf(failure);
        }
        if (isReset(failure)) {
            throw connectionLost(); // A service that hangs up at once may do so before the connection is seen to stand.
        }
        const std::string address = hostAndPort(location_.host, location_.port);
        if (failure == std::errc::connection_refused) {
            throw HttpError(HttpFailure::cannotConnect, "nothing answers at " + address);
        }
        throw HttpError(HttpFailure::other, "cannot connect to " + address + " (" + failure.message() + ")");
    }

    /// Sends the request until it is sent, or until the service has said that it does not want it or has closed the
    /// connection: what it said counts then.
    void send() {
        std::error_code& failure = uploadFailure_;
        upload_.sendSome(socket_, failure);
        if (!failure && !upload_.isSent()) {
            socket_.sendWithoutDelay();
        }
        while (!failure && !upload_.isSent() && !isUnwanted()) {
            if (response_.isWhole()) {
                socket_.waitToSend(std::min(answeredIdleLimit, request_.idleTimeout), failure);
            } else if (socket_.waitToSendOrReceive(idleLimit(), failure)) {
                receive();
                continue;
            } else if (failure) {
                throw failureOf(failure);
            }
            if (!failure) {
                upload_.sendSome(socket_, failure);
            }
        }
    }

    void receive() {
        const std::span<char> room = response_.room();
        std::error_code failure;
        const std::size_t size = socket_.receive(room.data(), room.size(), idleLimit(), failure);
        if (!failure && size == 0) {
            failure = uploadFailure_; // the system reports a reset only once
        }
        if (size > 0) {
            response_.received(size);
            if (!refusalEnd_ && !upload_.isSent() && response_.status() >= leastRefusingStatus) {
                refusalEnd_ = Clock::now() + refusalLimit;
            }
        } else if (!failure || (isReset(failure) && endsWithReset())) {
            response_.ended();
        } else {
            throw isReset(failure) ? connectionLost() : failureOf(failure);
        }
    }

    /// How long nothing may move from now on.
    std::chrono::milliseconds idleLimit() const {
        if (!refusalEnd_) {
            return request_.idleTimeout;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*refusalEnd_ - Clock::now());
        return std::max(std::chrono::milliseconds::zero(), std::min({left, answeredIdleLimit, request_.idleTimeout}));
    }

    bool isUnwanted() const { return response_.isWhole() && response_.status() >= leastUnacceptingStatus; }

    /// A service that closes with a request half read resets the connection: it cannot end its response otherwise.
    bool endsWithReset() const { return response_.endsWithConnection() && !request_.body.empty(); }

    const HttpRequest& request_;
    const HttpLocation& location_;
    const std::string head_;
    Upload upload_;
    LoopbackSocket socket_;
    HttpResponseReader response_;
    std::error_code uploadFailure_;
    std::optional<Clock::time_point> refusalEnd_; ///< When a refusal that came early counts, whole or not.
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
