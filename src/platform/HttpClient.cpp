#include "platform/HttpClient.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <sys/uio.h>

#include <boost/beast/core/error.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http.hpp>

#include "platform/LoopbackSocket.h"
#include "platform/Redirect.h"

namespace platform {

namespace {

namespace beast = boost::beast;
namespace http = boost::beast::http;
namespace net = boost::asio;

constexpr std::size_t readSize = 65536; // as much as the library takes at a time
constexpr std::uint32_t headLimit = std::uint32_t{1} << 20U;
constexpr std::uint64_t reserveLimit = std::uint64_t{256} << 20U;
constexpr int redirectLimit = 16;

/// The socket as a synchronous stream of Beast's.
class Stream {
public:
    explicit Stream(LoopbackSocket& socket) : socket_(socket) {}

    template <typename Buffers>
    std::size_t read_some(const Buffers& buffers, beast::error_code& error) {
        error = {};
        for (const net::mutable_buffer buffer : beast::buffers_range_ref(buffers)) {
            if (buffer.size() == 0) {
                continue;
            }
            std::error_code failure;
            const std::size_t received = socket_.receive(buffer.data(), buffer.size(), failure);
            error = failure ? translated(failure) : beast::error_code{};
            if (!failure && received == 0) {
                error = net::error::eof;
            }
            return received;
        }
        return 0;
    }

    template <typename Buffers>
    std::size_t write_some(const Buffers& buffers, beast::error_code& error) {
        std::array<iovec, 16> pieces;
        std::size_t count = 0;
        for (const net::const_buffer buffer : beast::buffers_range_ref(buffers)) {
            if (buffer.size() > 0 && count < pieces.size()) {
                pieces[count++] = {const_cast<void*>(buffer.data()), buffer.size()};
            }
        }
        std::error_code failure;
        const std::size_t sent = count == 0 ? 0 : socket_.send(pieces.data(), count, failure);
        error = failure ? translated(failure) : beast::error_code{};
        return sent;
    }

    // The forms that throw are part of what a stream is, though nothing here calls them.
    template <typename Buffers>
    std::size_t read_some(const Buffers& buffers) {
        beast::error_code error;
        const std::size_t size = read_some(buffers, error);
        return error ? throw beast::system_error(error) : size;
    }
    template <typename Buffers>
    std::size_t write_some(const Buffers& buffers) {
        beast::error_code error;
        const std::size_t size = write_some(buffers, error);
        return error ? throw beast::system_error(error) : size;
    }

private:
    static beast::error_code translated(const std::error_code& failure) {
        if (failure == std::errc::timed_out) {
            return beast::error::timeout;
        }
        return {failure.value(), boost::system::system_category()};
    }

    LoopbackSocket& socket_;
};

/// Keeps what the client needs of an answer: its status, where it redirects to, and its body.
class AnswerParser : public http::basic_parser<false> {
public:
    AnswerParser() {
        header_limit(headLimit);
        body_limit(boost::none);
    }

    int status = 0;
    std::optional<std::string> location{};
    std::string body{};

private:
    using text = beast::string_view;

    void on_request_impl(http::verb, text, text, int, beast::error_code&) override {}
    void on_response_impl(int code, text, int, beast::error_code&) override { status = code; }
    void on_field_impl(http::field name, text, text value, beast::error_code&) override {
        if (name == http::field::location && !location) {
            location.emplace(value.data(), value.size());
        }
    }
    void on_header_impl(beast::error_code&) override {}
    void on_body_init_impl(const boost::optional<std::uint64_t>& size, beast::error_code&) override {
        // An announcement is not to cost more memory than is reasonable before any of it has come.
        body.reserve(static_cast<std::size_t>(std::min(size.value_or(0), reserveLimit)));
    }
    std::size_t on_body_impl(text piece, beast::error_code&) override {
        body.append(piece.data(), piece.size());
        return piece.size();
    }
    void on_chunk_header_impl(std::uint64_t, text, beast::error_code&) override {}
    std::size_t on_chunk_body_impl(std::uint64_t, text piece, beast::error_code& error) override {
        return on_body_impl(piece, error);
    }
    void on_finish_impl(beast::error_code&) override {}
};

struct Answer {
    int status = 0;
    std::optional<std::string> location{};
    std::string body{};
};

HttpError failureOf(const beast::error_code& error) {
    namespace errc = boost::system::errc;
    if (error == beast::error::timeout) {
        return {HttpFailure::timedOut, "the service did not answer in time"};
    }
    if (error == http::error::end_of_stream || error == http::error::partial_message ||
        error == errc::connection_reset || error == errc::broken_pipe || error == errc::connection_aborted) {
        return {HttpFailure::connectionLost, "the connection was closed before the answer was complete"};
    }
    if (error == http::error::header_limit) {
        return {HttpFailure::other, "the head of the answer is too large"};
    }
    if (error.category() == beast::error_code(http::error::bad_version).category()) {
        return {HttpFailure::other, "the answer is not valid HTTP (" + error.message() + ")"};
    }
    return {HttpFailure::other, "the exchange with the service failed (" + error.message() + ")"};
}

/// Sends the whole request. Whether that succeeded is told by `error`.
void writeRequest(Stream& stream, const HttpRequest& request, const HttpLocation& place, beast::error_code& error) {
    http::request<http::span_body<const char>> message;
    message.version(11);
    message.method_string({request.method.data(), request.method.size()});
    message.target(place.target);
    message.set(http::field::host, hostAndPort(place.host, place.port));
    if (!request.contentType.empty()) {
        message.set(http::field::content_type, {request.contentType.data(), request.contentType.size()});
    }
    if (!request.body.empty()) {
        message.content_length(request.body.size());
    }
    message.body() = {request.body.data(), request.body.size()};
    http::write(stream, message, error);
}

/// Whether `buffer` holds the beginning of an answer, be it cut short.
bool mayBeHttp(const beast::flat_buffer& buffer) {
    constexpr std::string_view start = "HTTP/";
    const std::string_view text(static_cast<const char*>(buffer.cdata().data()), buffer.size());
    return text.starts_with(start) || start.starts_with(text);
}

Answer readAnswer(Stream& stream) {
    beast::flat_buffer buffer;
    buffer.reserve(readSize);
    beast::error_code error;
    for (;;) {
        AnswerParser parser;
        http::read(stream, buffer, parser, error);
        if (error == http::error::partial_message && parser.status == 0 && !mayBeHttp(buffer)) {
            error = http::error::bad_version;
        }
        if (error) {
            throw failureOf(error);
        }
        if (parser.status / 100 != 1) {
            return {parser.status, std::move(parser.location), std::move(parser.body)};
        }
    }
}

Answer exchange(const HttpRequest& request, const HttpLocation& place) {
    LoopbackSocket socket(request.idleTimeout);
    std::error_code failure;
    socket.connect(place.host, place.port, failure);
    if (failure == std::errc::connection_refused) {
        throw HttpError(HttpFailure::cannotConnect, "nothing answers at " + hostAndPort(place.host, place.port));
    }
    if (failure == std::errc::timed_out) {
        throw failureOf(beast::error::timeout);
    }
    if (failure) {
        throw HttpError(HttpFailure::other,
                        "cannot connect to " + hostAndPort(place.host, place.port) + " (" + failure.message() + ")");
    }
    Stream stream(socket);
    beast::error_code error;
    writeRequest(stream, request, place, error);
    if (error == beast::error::timeout) {
        throw failureOf(error);
    }
    // A service may answer and close before it has read everything: what it said still counts.
    return readAnswer(stream);
}

/// Where `answer` sends the client, if it does and the client may go there.
std::optional<HttpLocation> redirection(const Answer& answer, const HttpLocation& asked) {
    switch (answer.status) {
    case 301:
    case 302:
    case 303:
    case 307:
    case 308:
        break;
    default:
        return std::nullopt;
    }
    return answer.location ? resolveRedirect(asked, *answer.location) : std::nullopt;
}

void becomeGet(HttpRequest& request) {
    request.method = "GET";
    request.body.clear();
    request.contentType = {};
}

} // namespace

HttpResponse sendHttpRequest(HttpRequest request) {
    HttpLocation place{std::string(request.host), request.port, std::move(request.target)};
    for (int redirects = 0;; ++redirects) {
        Answer answer = exchange(request, place);
        auto next = redirection(answer, place);
        if (!next) {
            return {answer.status, std::move(answer.body)};
        }
        if (redirects == redirectLimit) {
            throw HttpError(HttpFailure::other, "too many redirects");
        }
        if (answer.status == 303 || (request.method == "POST" && (answer.status == 301 || answer.status == 302))) {
            becomeGet(request);
        }
        place = std::move(*next);
    }
}

} // namespace platform
