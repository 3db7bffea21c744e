#include "server.h"

#include <array>
#include <chrono>
#include <csignal>
#include <stdexcept>
#include <vector>

#include <boost/asio/awaitable.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/detached.hpp>
#include <boost/asio/ip/v6_only.hpp>
#include <boost/asio/redirect_error.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>

#include "endpoints.h"

namespace sample {

namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;
using asio::ip::tcp;
using boost::system::error_code;

constexpr std::uint32_t largestHead = 64 * 1024;
constexpr std::uint64_t largestBody = 4 * 1024 * 1024;
constexpr std::chrono::seconds patience{30};

http::response<http::string_body> message(Response answer, unsigned version, bool keepAlive) {
    http::response<http::string_body> response(static_cast<http::status>(answer.status), version);
    response.set(http::field::content_type, "application/json");
    if (!answer.allow.empty()) {
        response.set(http::field::allow, answer.allow);
    }
    response.body() = std::move(answer.body);
    response.keep_alive(keepAlive);
    response.prepare_payload();
    return response;
}

Response refuse(const error_code& error) {
    if (error == http::error::header_limit) {
        return refusal(431, "The request's head is too long.");
    }
    if (error == http::error::body_limit) {
        return refusal(413, "The request's body is too long.");
    }
    return refusal(400, "That is no HTTP request: " + error.message() + ".");
}

/// Lets the last answer reach a client that is still sending, which closing at once would cut off.
asio::awaitable<void> closeGently(beast::tcp_stream& stream) {
    error_code error;
    stream.socket().shutdown(tcp::socket::shutdown_send, error);
    stream.expires_after(std::chrono::seconds(2));
    std::array<char, 16384> ignored{};
    while (!error) {
        co_await stream.async_read_some(asio::buffer(ignored), asio::redirect_error(asio::use_awaitable, error));
    }
}

asio::awaitable<void> converse(tcp::socket socket, Library& library) {
    beast::tcp_stream stream(std::move(socket));
    beast::flat_buffer buffer;
    error_code error;
    for (bool more = true; more && !error;) {
        http::request_parser<http::string_body> parser;
        parser.header_limit(largestHead);
        parser.body_limit(largestBody);
        stream.expires_after(patience);
        co_await http::async_read(stream, buffer, parser, asio::redirect_error(asio::use_awaitable, error));
        const bool unusable = error.category() == error_code(http::error::bad_method).category();
        if (error == http::error::end_of_stream || (error && !unusable)) {
            break;
        }
        const auto& request = parser.get();
        Response response =
            unusable ? refuse(error) : answer(library, request.method_string(), request.target(), request.body());
        // The answer to HEAD has no body, yet its head would announce one: closing keeps the two ends in step.
        more = !unusable && request.keep_alive() && request.method() != http::verb::head;
        auto reply = message(std::move(response), unusable ? 11 : request.version(), more);
        co_await http::async_write(stream, reply, asio::redirect_error(asio::use_awaitable, error));
    }
    co_await closeGently(stream);
}

asio::awaitable<void> takeConnections(tcp::acceptor acceptor, Library& library) {
    for (;;) {
        error_code error;
        tcp::socket socket = co_await acceptor.async_accept(asio::redirect_error(asio::use_awaitable, error));
        if (!error) {
            asio::co_spawn(acceptor.get_executor(), converse(std::move(socket), library), asio::detached);
        }
    }
}

tcp::acceptor listen(asio::io_context& context, const tcp::endpoint& endpoint) {
    tcp::acceptor acceptor(context, endpoint.protocol());
    acceptor.set_option(tcp::acceptor::reuse_address(true));
    if (endpoint.address().is_v6()) {
        acceptor.set_option(asio::ip::v6_only(true));
    }
    acceptor.bind(endpoint);
    acceptor.listen();
    return acceptor;
}

} // namespace

void serve(Library& library, std::uint16_t port, const std::function<void(std::uint16_t)>& ready) {
    asio::io_context context(1);
    std::vector<tcp::acceptor> acceptors;
    try {
        acceptors.push_back(listen(context, {asio::ip::address_v4::loopback(), port}));
        port = acceptors.front().local_endpoint().port();
        acceptors.push_back(listen(context, {asio::ip::address_v6::loopback(), port}));
    } catch (const boost::system::system_error& error) {
        if (error.code() == asio::error::address_in_use) {
            throw std::runtime_error("Port " + std::to_string(port) +
                                     " is taken. Perhaps the application itself or another sample library is running.");
        }
        if (acceptors.empty()) {
            throw std::runtime_error("Cannot listen on port " + std::to_string(port) + ": " + error.code().message() +
                                     ".");
        }
        // A machine without IPv6 is served on IPv4 alone.
    }
    for (tcp::acceptor& acceptor : acceptors) {
        asio::co_spawn(context, takeConnections(std::move(acceptor), library), asio::detached);
    }
    asio::signal_set signals(context, SIGINT, SIGTERM);
    signals.async_wait([&](const error_code&, int) { context.stop(); });
    ready(port);
    context.run();
}

} // namespace sample
