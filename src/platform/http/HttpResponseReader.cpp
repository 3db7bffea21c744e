// The library asserts that the end of a chunked body has five bytes whenever it looks at it again. That of an empty
// body has four when its last line feed comes alone, and the code behind the assertion needs no more than three.
#define BOOST_DISABLE_ASSERTS

// The library tells a field's name by a table of 350 that every run would have to fill; its parser asks for five.
#define BOOST_BEAST_HTTP_IMPL_FIELD_IPP

#include "platform/http/HttpResponseReader.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include <boost/beast/core/error.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/read_size.hpp>
#include <boost/beast/core/string.hpp>
#include <boost/beast/http/basic_parser.hpp>
#include <boost/beast/http/error.hpp>

#include "platform/http/HttpResponseBody.h"

boost::beast::http::field boost::beast::http::string_to_field(string_view name) {
    using enum field;
    constexpr std::pair<field, string_view> fields[] = {{connection, "Connection"},
                                                        {proxy_connection, "Proxy-Connection"},
                                                        {content_length, "Content-Length"},
                                                        {transfer_encoding, "Transfer-Encoding"},
                                                        {upgrade, "Upgrade"},
                                                        {location, "Location"}};
    for (const auto& [value, text] : fields) {
        if (iequals(name, text)) {
            return value;
        }
    }
    return unknown;
}

namespace platform {

namespace {

namespace beast = boost::beast;
namespace http = boost::beast::http;

// Most answers are short, and come with their head: they do without the memory that long ones are read into.
constexpr std::size_t firstReadSize = 8192;
constexpr std::size_t readSize = 65536;
constexpr std::uint32_t headLimit = std::uint32_t{1} << 20U;

HttpError headTooLarge() {
    return {HttpFailure::other, "the head of the answer is too large"};
}

HttpError invalidResponse(const beast::error_code& error) {
    return {HttpFailure::other, "the answer is not valid HTTP (" + error.message() + ")"};
}

/// Where the first empty line of `text` ends, however the lines are ended.
std::size_t headEnd(std::string_view text) {
    std::size_t end = text.find('\n');
    while (end != std::string_view::npos) {
        const std::string_view next = text.substr(++end, 2);
        if (next == "\r\n" || next.starts_with('\n')) {
            return end + next.find('\n') + 1;
        }
        end = text.find('\n', end);
    }
    return end;
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

    std::string_view unread() const { return {static_cast<const char*>(buffer.cdata().data()), buffer.size()}; }

    /// Parses of the first `size` unread bytes what it can, and tells whether that was any.
    bool parse(std::size_t size) {
        beast::error_code error;
        const std::size_t parsed = parser->put({buffer.cdata().data(), size}, error);
        buffer.consume(parsed);
        body.flush();
        if (error && error != http::error::need_more) {
            throw invalidResponse(error);
        }
        return parsed > 0;
    }

    /// Parses a head once it is there to its empty line, so that what is wrong with one does not depend on the pieces
    /// in which it came. Whether it is there.
    bool parseHead() {
        constexpr std::string_view start = "HTTP/";
        const std::string_view text = unread();
        if (text.substr(0, start.size()) != start.substr(0, text.size())) {
            throw invalidResponse(http::error::bad_version);
        }
        const std::size_t end = headEnd(text);
        if (std::min(end, text.size()) > headLimit) {
            throw headTooLarge();
        }
        if (end == std::string_view::npos) {
            return false;
        }
        parse(end);
        if (!parser->is_header_done()) {
            throw invalidResponse(http::error::bad_line_ending);
        }
        return true;
    }

    /// Parses what is there of a body. Whether that was anything.
    bool parseBody() {
        const std::size_t size = std::min<std::size_t>(buffer.size(), headLimit);
        const bool isAny = parse(size);
        if (!isAny && size == headLimit) {
            throw headTooLarge(); // that of a chunk
        }
        return isAny;
    }

    HttpResponseBody body;
    std::optional<Parser> parser{};
    beast::flat_buffer buffer{};
};

HttpResponseReader::HttpResponseReader(const BodySink& sink) : state_(std::make_unique<State>(sink)) {
    state_->buffer.reserve(firstReadSize);
}

HttpResponseReader::~HttpResponseReader() = default;

std::span<char> HttpResponseReader::room() {
    if (state_->parser->is_header_done()) {
        state_->buffer.reserve(readSize);
    }
    const auto room = state_->buffer.prepare(beast::read_size(state_->buffer, readSize));
    return {static_cast<char*>(room.data()), room.size()};
}

void HttpResponseReader::received(std::size_t size) {
    State& state = *state_;
    state.buffer.commit(size);
    while (state.buffer.size() > 0 && !isWhole()) {
        const bool isInHead = !state.parser->is_header_done();
        if (!(isInHead ? state.parseHead() : state.parseBody())) {
            return;
        }
        if (state.parser->is_done() && state.parser->isInterim()) {
            state.parser.emplace(state.body);
        }
    }
}

void HttpResponseReader::ended() {
    State& state = *state_;
    if (!state.parser->is_header_done()) {
        state.parse(state.buffer.size());
        throw connectionLost();
    }
    beast::error_code error;
    state.parser->put_eof(error);
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
