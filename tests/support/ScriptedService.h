// A service on loopback that answers what a test says and records what it was asked.
#pragma once

#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace testsupport {

/// The port the application serves on.
inline constexpr std::uint16_t applicationPort = 44360;

/// What the service does with one request: how much of it is read, what is sent, how the connection ends.
struct Answer {
    enum class Reading {
        all,
        head,
        nothing,
        rest, ///< The head, then the first piece is sent, then the rest is read, then the other pieces are sent.
    };
    enum class Ending {
        leaveOpen, ///< The client closes, as with a connection that is kept alive.
        close,
        reset, ///< An RST instead of an orderly end.
    };
    enum class Use {
        once,
        always, ///< For every request from then on, if there are any.
        never,  ///< Nobody listens from then on.
    };

    std::vector<std::string> pieces{};
    Ending ending = Ending::leaveOpen;
    Reading reading = Reading::all;
    std::chrono::milliseconds pause{0}; ///< Between two pieces, and with `rest` between two looks at what has come.
    Use use = Use::once;
};

/// Name and value of header fields, in order.
using Headers = std::vector<std::pair<std::string, std::string>>;

/// A whole answer with a Content-Length. Without a Content-Type among `headers`, it is application/json.
Answer answer(int status, std::string body, const Headers& headers = {});
/// The same with status 200.
Answer answer(std::string body);
/// `bytes` as they are; the connection stays open.
Answer rawAnswer(std::string bytes);
/// `bytes` as they are, then the end of the connection.
Answer cutAnswer(std::string bytes);
/// `bytes` as they are, then a reset of the connection.
Answer resetAnswer(std::string bytes = {});
/// The pieces with a pause before each but the first; the connection stays open.
Answer dribbledAnswer(std::vector<std::string> pieces, std::chrono::milliseconds pause);
/// Reads the request and never answers.
Answer stall();
/// Nobody listens any more: to be the last answer.
Answer absence();
/// Accepts the connection and never reads from it.
Answer deafness();
/// The pieces as soon as the head of the request is in. Unless `reading` says otherwise, the rest is left unread.
Answer earlyAnswer(std::vector<std::string> pieces, Answer::Ending ending,
                   Answer::Reading reading = Answer::Reading::head, std::chrono::milliseconds pause = {});

/// A request as it came.
struct RecordedRequest {
    std::string head; ///< Raw, with the empty line at its end.
    std::string method;
    std::string target;
    Headers headers;
    std::string body;

    /// "METHOD target", and for a request with a body a line feed and the body.
    std::string text() const;
};

/// Listens from construction to destruction. Connections are served one after another, one request on each, with the
/// answers in order. An answer nobody asked for, a request without an answer (it gets status 599) and bytes behind the
/// end of a request each fail the current test.
class ScriptedService {
public:
    enum class Families { both, ipv4, ipv6 }; ///< Both means IPv4 alone where loopback has no IPv6 address.

    explicit ScriptedService(std::vector<Answer> answers = {}, Families families = Families::both,
                             std::uint16_t port = applicationPort);
    ~ScriptedService();
    ScriptedService(const ScriptedService&) = delete;
    ScriptedService& operator=(const ScriptedService&) = delete;

    /// What was asked so far, in order.
    std::vector<RecordedRequest> requests() const;
    /// The same, each as its text().
    std::vector<std::string> requestTexts() const;

private:
    void listenOn(int family, std::uint16_t port);
    void closeListeners();
    /// Closes them when the next answer is that nobody listens.
    void leaveIfAbsent();
    void serve();
    void serveConnection(int connection);

    std::vector<Answer> answers_;
    std::vector<int> listeners_;
    int stop_ = -1;
    mutable std::mutex mutex_;
    std::vector<RecordedRequest> requests_;
    std::vector<std::string> faults_;
    std::size_t used_ = 0;
    std::thread thread_;
};

} // namespace testsupport
