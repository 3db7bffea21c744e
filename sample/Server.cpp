#include "Server.h"

#include <chrono>
#include <csignal>
#include <memory>
#include <stdexcept>
#include <vector>

#include <boost/asio/ip/v6_only.hpp>
#include <boost/asio/signal_set.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>

#include "Endpoints.h"

namespace sample {

namespace {

namespace asio = boost::asio;
namespace beast = boost::beast;
namespace http = boost::beast::http;
using asio::ip::tcp;
using boost::system::error_code;

using Clock = std::chrono::steady_clock;

constexpr auto patience = std::chrono::seconds(30);

/// One request and its answer, after which the connection closes. The operation under way keeps it alive.
class Connection : public std::enable_shared_from_this<Connection> {
public:
    Connection(tcp::socket socket, Library& library, const Manners& manners)
        : stream_(std::move(socket)), timer_(stream_.get_executor()), library_(library), manners_(manners) {}

    void start() {
        stream_.expires_after(patience);
        parser_.header_limit(64 * 1024);
        parser_.body_limit(boost::none);
        http::async_read(stream_, buffer_, parser_, [self = shared_from_this()](error_code error, std::size_t) {
            if (!error) {
                self->wait();
            }
        });
    }

private:
    void wait() {
        received_ = Clock::now();
        timer_.expires_after(manners_.delay);
        timer_.async_wait([self = shared_from_this()](error_code) { self->reply(); });
    }

    void reply() {
        const auto& request = parser_.get();
        const std::string_view method = request.method_string();
        const std::string_view target = request.target();
        std::optional<Response> given;
        if (manners_.failure) {
            given = refusal(*manners_.failure, "The sample library refuses every request.");
        } else if (!manners_.closes) {
            given = answer(library_, method, target, request.body());
        }
        if (manners_.log) {
            const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - received_);
            manners_.log({method, target, request.body(), took, given});
        }
        if (given) {
            send(std::move(*given));
        }
    }

    void send(Response given) {
        response_.result(given.status);
        response_.set(http::field::content_type, "application/json");
        response_.body() = std::move(given.body);
        response_.keep_alive(false);
        response_.prepare_payload();
        stream_.expires_after(patience);
        http::async_write(stream_, response_, [self = shared_from_this()](error_code, std::size_t) {});
    }

    beast::tcp_stream stream_;
    asio::steady_timer timer_;
    Clock::time_point received_{};
    beast::flat_buffer buffer_;
    http::request_parser<http::string_body> parser_;
    http::response<http::string_body> response_;
    Library& library_;
    const Manners& manners_;
};

void takeConnections(tcp::acceptor& acceptor, Library& library, const Manners& manners) {
    acceptor.async_accept([&](error_code error, tcp::socket socket) {
        if (!error) {
            std::make_shared<Connection>(std::move(socket), library, manners)->start();
        }
        takeConnections(acceptor, library, manners);
    });
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

void serve(Library& library, std::uint16_t port, const Manners& manners,
           const std::function<void(std::uint16_t)>& ready) {
    asio::io_context context(1);
    std::vector<tcp::acceptor> acceptors;
    try {
        acceptors.push_back(listen(context, {asio::ip::address_v4::loopback(), port}));
        port = acceptors.front().local_endpoint().port();
        acceptors.push_back(listen(context, {asio::ip::address_v6::loopback(), port}));
    } catch (const boost::system::system_error& error) {
        const std::string at = "Port " + std::to_string(port);
        if (error.code() == asio::error::address_in_use) {
            throw std::runtime_error(
                at + " is taken. Look for the Orvane application or another sample-library, and end it first.");
        }
        if (acceptors.empty()) {
            throw std::runtime_error(at + " cannot be listened on: " + error.code().message() + ".");
        }
        // A machine without IPv6 is served on IPv4 alone.
    }
    for (tcp::acceptor& acceptor : acceptors) {
        takeConnections(acceptor, library, manners);
    }
    asio::signal_set signals(context, SIGINT, SIGTERM);
    signals.async_wait([&](const error_code&, int) { context.stop(); });
    ready(port);
    context.run();
}

} // namespace sample
