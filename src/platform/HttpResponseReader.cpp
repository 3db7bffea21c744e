#include "platform/HttpResponseReader.h"

#include <string_view>
#include <utility>

#include <boost/beast/core/error.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/read_size.hpp>
#include <boost/beast/core/string.hpp>
#include <boost/beast/http/basic_parser.hpp>
#include <boost/beast/http/error.hpp>

#include "platform/HttpResponseBody.h"

namespace platform {

namespace {

namespace beast = boost::beast;
namespace http = boost::beast::http;

constexpr std::size_t readSize = 65536;
constexpr std::uint32_t headLimit = std::uint32_t{1} << 20U;

HttpError invalidResponse(const beast::error_code& error) {
    if (error == http::error::header_limit) {
        return {HttpFailure::other, "the head of the answer is too large"};
    }
    return {HttpFailure::other, "the answer is not valid HTTP (" + error.message() + ")"};
}

/// Keeps what the client needs of a response: its status, where it redirects to, and its body.
class Parser : public http::basic_parser<false> {
public:
    explicit Parser(HttpResponseBody& body) : body_(body) {
        header_limit(headLimit);
        body_limit(boost::none);
        eager(true);
    }

    int status = 0;
    std::optional<std::string> location{};

    bool isInterim() const { return status / 100 == 1; }

private:
    using text = beast::string_view;

    void on_request_impl(http::verb, text, text, int, beast::error_code&) override {}
    void on_response_impl(int code, text, int, beast::error_code& error) override {
        // Nothing asks for another protocol, so what follows a 101 cannot be understood.
        constexpr int switchingProtocols = 101;
        if (code < 100 || code == switchingProtocols) {
            error = http::error::bad_status;
        }
        status = code;
    }
    void on_field_impl(http::field name, text, text value, beast::error_code& error) override {
        if (is_header_done()) {
            return; // a trailer
        }
        if (name == http::field::location && !location) {
            location.emplace(value.data(), value.size());
        }
        // The library takes a body in any other coding for one that ends with the connection.
        if (name == http::field::transfer_encoding && !beast::iequals(value, "chunked")) {
            error = http::error::bad_transfer_encoding;
        }
    }
    void on_header_impl(beast::error_code&) override {}
    void on_body_init_impl(const boost::optional<std::uint64_t>& size, beast::error_code&) override {
        body_.begin(status / 100 == 2, size ? std::optional(*size) : std::nullopt);
    }
    std::size_t on_body_impl(text piece, beast::error_code&) override {
        body_.add({piece.data(), piece.size()});
        return piece.size();
    }
    void on_chunk_header_impl(std::uint64_t, text, beast::error_code&) override {}
    std::size_t on_chunk_body_impl(std::uint64_t, text piece, beast::error_code& error) override {
        return on_body_impl(piece, error);
    }
    void on_finish_impl(beast::error_code&) override {}

    HttpResponseBody& body_;
};

} // namespace

struct HttpResponseReader::State {
    explicit State(const BodySink& sink) : body(sink) { parser.emplace(body); }

    /// Whether what has come may be the beginning of a response, be it cut short.
    bool mayBeHttp() const {
        constexpr std::string_view start = "HTTP/";
        const std::string_view text(static_cast<const char*>(buffer.cdata().data()), buffer.size());
        return parser->status != 0 || text.starts_with(start) || start.starts_with(text);
    }

    HttpResponseBody body;
    std::optional<Parser> parser{};
    beast::flat_buffer buffer{};
};

HttpResponseReader::HttpResponseReader(const BodySink& sink) : state_(std::make_unique<State>(sink)) {
    state_->buffer.reserve(readSize);
}

HttpResponseReader::~HttpResponseReader() = default;

std::span<char> HttpResponseReader::room() {
    const auto room = state_->buffer.prepare(beast::read_size(state_->buffer, readSize));
    return {static_cast<char*>(room.data()), room.size()};
}

void HttpResponseReader::received(std::size_t size) {
    auto& [body, parser, buffer] = *state_;
    buffer.commit(size);
    while (buffer.size() > 0 && !isWhole()) {
        beast::error_code error;
        buffer.consume(parser->put(buffer.cdata(), error));
        body.flush();
        if (error == http::error::need_more && buffer.size() < headLimit) {
            return;
        }
        if (error) {
            throw invalidResponse(error == http::error::need_more ? http::error::header_limit : error);
        }
        if (parser->is_done() && parser->isInterim()) {
            parser.emplace(body);
        }
    }
}

void HttpResponseReader::ended() {
    Parser& parser = *state_->parser;
    if (!parser.got_some()) {
        throw connectionLost();
    }
    beast::error_code error;
    parser.put_eof(error);
    if (error && !state_->mayBeHttp()) {
        throw invalidResponse(http::error::bad_version);
    }
    if (error) {
        throw connectionLost();
    }
}

int HttpResponseReader::status() const {
    const Parser& parser = *state_->parser;
    return parser.is_header_done() && !parser.isInterim() ? parser.status : 0;
}

bool HttpResponseReader::isWhole() const {
    return state_->parser->is_done() && !state_->parser->isInterim();
}

bool HttpResponseReader::endsWithConnection() const {
    return state_->parser->is_header_done() && state_->parser->need_eof();
}

std::optional<std::string> HttpResponseReader::takeLocation() {
    return std::move(state_->parser->location);
}

HttpResponse HttpResponseReader::takeResponse() {
    return {state_->parser->status, state_->body.take(), state_->body.isPassedOn()};
}

HttpError connectionLost() {
    return {HttpFailure::connectionLost, "the connection was closed before the answer was complete"};
}

} // namespace platform
