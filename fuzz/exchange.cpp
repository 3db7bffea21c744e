// Whole exchanges over loopback. The first byte of an input says how the service behaves, the rest of the first line is
// the lengths of what it sends at a time, over and over again; behind it comes the response.
#include <mutex>
#include <thread>

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include "Response.h"
#include "support/ScriptedService.h"
#include "support/TestNetwork.h"

namespace {

/// What the service does with each connection.
struct Script {
    bool readsRequest = true;   ///< Before it answers.
    bool endsInOrder = true;    ///< Reads on until the client closes; otherwise it closes with whatever is unread.
    bool endsWithReset = false; ///< For one that does not end in order.
    std::string lengths{};
    std::string bytes{};
};

class Service {
public:
    Service() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(testsupport::applicationPort);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const int on = 1;
        ::setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
        const auto* const name = reinterpret_cast<const sockaddr*>(&address);
        fuzz::require(::bind(listener_, name, sizeof address) == 0 && ::listen(listener_, 8) == 0, "a service listens");
        std::thread([this] { serve(); }).detach();
    }

    void follow(Script script) {
        const std::lock_guard lock(mutex_);
        script_ = std::move(script);
    }

private:
    [[noreturn]] void serve() {
        while (true) {
            const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
            std::unique_lock lock(mutex_);
            const Script script = script_;
            lock.unlock();
            serveConnection(connection, script);
            ::close(connection);
        }
    }

    static void serveConnection(int connection, const Script& script) {
        const int on = 1;
        ::setsockopt(connection, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        if (script.readsRequest) {
            readRequest(connection);
        }
        std::string_view bytes = script.bytes;
        for (std::size_t turn = 0; !bytes.empty(); ++turn) {
            const std::size_t length = fuzz::pieceLength(bytes, script.lengths, turn);
            if (::send(connection, bytes.data(), length, MSG_NOSIGNAL) != static_cast<ssize_t>(length)) {
                break;
            }
            bytes.remove_prefix(length);
        }
        if (script.endsInOrder) {
            ::shutdown(connection, SHUT_WR);
            while (receive(connection) > 0) {
                ;
            }
        } else if (script.endsWithReset) {
            const linger atOnce{1, 0};
            ::setsockopt(connection, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        }
    }

    static ssize_t receive(int connection) {
        static char buffer[65536];
        return ::recv(connection, buffer, sizeof buffer, 0);
    }

    static void readRequest(int connection) {
        std::string head;
        char byte = 0;
        while (!head.ends_with("\r\n\r\n") && ::recv(connection, &byte, 1, 0) == 1) {
            head += byte;
        }
        constexpr std::string_view key = "Content-Length: ";
        const std::size_t at = head.find(key);
        ssize_t left = at == std::string::npos ? 0 : std::atol(head.c_str() + at + key.size());
        for (ssize_t size = 1; left > 0 && size > 0; left -= size) {
            size = receive(connection);
        }
    }

    const int listener_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    std::mutex mutex_;
    Script script_;
};

Service& service() {
    static auto* const service = new Service; // Its thread goes on until the process ends.
    return *service;
}

std::string outcomeOf(platform::HttpRequest request) {
    std::string passedOn;
    const platform::BodySink sink = [&](std::string_view piece) { passedOn += piece; };
    try {
        return fuzz::outcome(platform::sendHttpRequest(std::move(request), sink), passedOn);
    } catch (const platform::HttpError& error) {
        fuzz::require(error.failure() != platform::HttpFailure::timedOut, "an exchange ends when the service ends it");
        return fuzz::outcome(error, passedOn);
    }
}

struct Expectation {
    std::string outcome;
    bool isRedirect = false;
    bool endsWithConnection = false;
};

Expectation expected(std::string_view bytes) {
    std::string passedOn;
    const platform::BodySink sink = [&](std::string_view piece) { passedOn += piece; };
    platform::HttpResponseReader reader(sink);
    try {
        fuzz::feed(reader, bytes, {});
        const bool isRedirect = reader.status() / 100 == 3 && reader.takeLocation();
        const bool endsWithConnection = reader.endsWithConnection();
        return {fuzz::outcome(reader.takeResponse(), passedOn), isRedirect, endsWithConnection};
    } catch (const platform::HttpError& error) {
        return {fuzz::outcome(error, passedOn)};
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    testsupport::isolateNetwork();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const unsigned behaviour = input.byte();
    const std::string_view lengths = input.line();
    const std::string_view bytes = input.rest();
    if (fuzz::mayAnnounceGigabytes(bytes)) {
        return -1;
    }
    const Expectation expectation = expected(bytes);
    if (expectation.isRedirect && !testsupport::networkIsOwn()) {
        return -1; // It may lead to whatever else serves there.
    }
    const Script script{(behaviour & 1U) == 0, (behaviour & 2U) == 0, (behaviour & 4U) != 0, std::string(lengths),
                        std::string(bytes)};
    service().follow(script);
    platform::HttpRequest request{"POST", "127.0.0.1", testsupport::applicationPort, "/api/a", {}, "text/plain"};
    request.body.resize((behaviour & 8U) == 0 ? 0 : 400'000, 'x'); // More than the connection takes at once.
    request.idleTimeout = std::chrono::seconds(10);
    const std::string outcome = outcomeOf(request);
    // The status of a refusal counts without its text when the request is not sent whole.
    const bool isCutRefusal = !request.body.empty() && outcome.front() >= '4' && outcome.front() <= '9' &&
                              expectation.outcome.starts_with("failure");
    // A service that closes with a part of the request unread resets the connection, on which bytes may get lost.
    const bool mayLoseItsEnd = !request.body.empty() && expectation.endsWithConnection;
    const bool isCut = isCutRefusal || mayLoseItsEnd || (!script.endsInOrder && outcome.starts_with("failure 2"));
    if (!expectation.isRedirect && !isCut) {
        fuzz::requireSame(outcome, expectation.outcome, "an exchange brings the response that was sent");
    }
    return 0;
}
