#include "support/ScriptedService.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <optional>
#include <system_error>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <strings.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "support/TestNetwork.h"

namespace testsupport {

namespace {

constexpr std::string_view headEnd = "\r\n\r\n";

[[noreturn]] void throwSystemError(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

bool sameName(std::string_view left, std::string_view right) {
    return left.size() == right.size() && ::strncasecmp(left.data(), right.data(), left.size()) == 0;
}

RecordedRequest parseHead(std::string head) {
    RecordedRequest request;
    std::string_view rest = head;
    const auto nextLine = [&rest] {
        const auto end = rest.find("\r\n");
        const std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end + 2);
        return line;
    };
    const std::string_view start = nextLine();
    const auto blank = std::min(start.find(' '), start.size());
    request.method = start.substr(0, blank);
    if (start.ends_with(" HTTP/1.1") && start.size() > blank + 9) {
        request.target = start.substr(blank + 1, start.size() - blank - 10);
    }
    for (std::string_view line = nextLine(); !line.empty(); line = nextLine()) {
        const auto colon = std::min(line.find(": "), line.size() - 1);
        request.headers.emplace_back(line.substr(0, colon), line.substr(std::min(colon + 2, line.size())));
    }
    request.head = std::move(head);
    return request;
}

std::size_t announcedSize(const RecordedRequest& request) {
    std::size_t size = 0;
    for (const auto& [name, value] : request.headers) {
        if (sameName(name, "Content-Length")) {
            std::from_chars(value.data(), value.data() + value.size(), size);
        }
    }
    return size;
}

/// The service's end of one connection. Every wait ends when the service is to stop.
class Connection {
public:
    Connection(int socket, int stop) : socket_(socket), stop_(stop) {
        // A piece that waits for the acknowledgement of the one before would be lost in a reset.
        const int on = 1;
        ::setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
    ~Connection() { ::close(socket_); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Appends what comes next to `bytes`; false at the end of the stream, after a reset and when told to stop.
    bool receive(std::string& bytes) {
        if (!wait(POLLIN)) {
            return false;
        }
        std::array<char, 65536> buffer;
        const ssize_t size = ::recv(socket_, buffer.data(), buffer.size(), MSG_DONTWAIT);
        if (size > 0) {
            bytes.append(buffer.data(), static_cast<std::size_t>(size));
        }
        return size > 0;
    }

    bool send(std::string_view bytes) {
        while (!bytes.empty()) {
            if (!wait(POLLOUT)) {
                return false;
            }
            const ssize_t size = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
            if (size < 0 && errno != EAGAIN) {
                return false;
            }
            bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        }
        return true;
    }

    /// Waits for `event` or, with a limit, until it has passed.
    bool wait(short event, int milliseconds = -1) const {
        std::array<pollfd, 2> entries{{{socket_, event, 0}, {stop_, POLLIN, 0}}};
        while (::poll(entries.data(), entries.size(), milliseconds) < 0 && errno == EINTR) {
            ;
        }
        return entries[0].revents != 0;
    }

    void pause(std::chrono::milliseconds length) const {
        if (length.count() > 0) {
            wait(0, static_cast<int>(length.count()));
        }
    }

    void reset() const {
        const linger atOnce{1, 0};
        ::setsockopt(socket_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    }

private:
    int socket_;
    int stop_;
};

/// Reads the head of a request; what follows it stays in `bytes`.
std::optional<RecordedRequest> readHead(Connection& connection, std::string& bytes) {
    std::size_t end = std::string::npos;
    while ((end = bytes.find(headEnd)) == std::string::npos) {
        if (!connection.receive(bytes)) {
            return std::nullopt;
        }
    }
    RecordedRequest request = parseHead(bytes.substr(0, end + headEnd.size()));
    bytes.erase(0, end + headEnd.size());
    return request;
}

/// Reads the body of `request`, or as much as comes of it; what follows stays in `bytes`.
void readBody(Connection& connection, RecordedRequest& request, std::string& bytes, std::chrono::milliseconds pause) {
    const std::size_t size = announcedSize(request);
    bytes.reserve(size);
    while (bytes.size() < size && connection.receive(bytes)) {
        connection.pause(pause);
    }
    request.body = bytes.substr(0, size);
    bytes.erase(0, size);
}

} // namespace

Answer answer(int status, std::string body, const Headers& headers) {
    std::string head = "HTTP/1.1 " + std::to_string(status) + " Scripted\r\n";
    const bool typed = std::any_of(headers.begin(), headers.end(),
                                   [](const auto& header) { return sameName(header.first, "Content-Type"); });
    if (!typed) {
        head += "Content-Type: application/json\r\n";
    }
    for (const auto& [name, value] : headers) {
        head.append(name).append(": ").append(value).append("\r\n");
    }
    head += "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n";
    return {{std::move(head), std::move(body)}};
}

Answer answer(std::string body) {
    return answer(200, std::move(body));
}

Answer rawAnswer(std::string bytes) {
    return {{std::move(bytes)}};
}

Answer cutAnswer(std::string bytes) {
    return {{std::move(bytes)}, Answer::Ending::close};
}

Answer resetAnswer(std::string bytes) {
    return {{std::move(bytes)}, Answer::Ending::reset};
}

Answer dribbledAnswer(std::vector<std::string> pieces, std::chrono::milliseconds pause) {
    return {std::move(pieces), Answer::Ending::leaveOpen, Answer::Reading::all, pause};
}

Answer stall() {
    return {};
}

Answer absence() {
    return {.use = Answer::Use::never};
}

Answer deafness() {
    return {{}, Answer::Ending::leaveOpen, Answer::Reading::nothing};
}

Answer earlyAnswer(std::vector<std::string> pieces, Answer::Ending ending, Answer::Reading reading,
                   std::chrono::milliseconds pause) {
    return {std::move(pieces), ending, reading, pause};
}

std::string RecordedRequest::text() const {
    return method + " " + target + (body.empty() ? "" : "\n" + body);
}

ScriptedService::ScriptedService(std::vector<Answer> answers, Families families, std::uint16_t port)
    : answers_(std::move(answers)), stop_(::eventfd(0, EFD_CLOEXEC)) {
    if (families != Families::ipv6) {
        listenOn(AF_INET, port);
    }
    if (families == Families::ipv6 || (families == Families::both && hasIPv6())) {
        listenOn(AF_INET6, port);
    }
    leaveIfAbsent();
    thread_ = std::thread([this] { serve(); });
}

ScriptedService::~ScriptedService() {
    ::eventfd_write(stop_, 1);
    thread_.join();
    closeListeners();
    ::close(stop_);
    for (const std::string& fault : faults_) {
        ADD_FAILURE() << fault;
    }
    if (used_ < answers_.size() && answers_[used_].use != Answer::Use::always) {
        ADD_FAILURE() << answers_.size() - used_ << " of " << answers_.size() << " scripted answers not asked for";
    }
}

void ScriptedService::listenOn(int family, std::uint16_t port) {
    const int listener = ::socket(family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (listener < 0) {
        throwSystemError("socket");
    }
    listeners_.push_back(listener);
    const int on = 1;
    ::setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in four{};
    four.sin_family = AF_INET;
    four.sin_port = htons(port);
    four.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    sockaddr_in6 six{};
    six.sin6_family = AF_INET6;
    six.sin6_port = htons(port);
    six.sin6_addr = in6addr_loopback;
    const bool isFour = family == AF_INET;
    if (::bind(listener, isFour ? reinterpret_cast<sockaddr*>(&four) : reinterpret_cast<sockaddr*>(&six),
               isFour ? sizeof four : sizeof six) != 0) {
        throwSystemError("bind");
    }
    if (::listen(listener, 16) != 0) {
        throwSystemError("listen");
    }
}

void ScriptedService::closeListeners() {
    for (const int listener : listeners_) {
        ::close(listener);
    }
    listeners_.clear();
}

void ScriptedService::leaveIfAbsent() {
    if (used_ < answers_.size() && answers_[used_].use == Answer::Use::never) {
        ++used_;
        closeListeners();
    }
}

void ScriptedService::serve() {
    // Ahead of whatever else a busy machine does, where the system allows it: a command may wait five seconds at most.
    const sched_param first{1};
    ::pthread_setschedparam(::pthread_self(), SCHED_FIFO, &first);
    std::vector<pollfd> entries;
    for (const int listener : listeners_) {
        entries.push_back({listener, POLLIN, 0});
    }
    entries.push_back({stop_, POLLIN, 0});
    for (;;) {
        if (::poll(entries.data(), entries.size(), -1) < 0 && errno != EINTR) {
            return;
        }
        // Connections that wait are served before the service stops, so that nothing sent goes unrecorded.
        bool served = false;
        for (const int listener : listeners_) {
            const int connection = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
            if (connection < 0) {
                continue;
            }
            serveConnection(connection);
            if (listeners_.empty()) {
                return;
            }
            served = true;
        }
        if (!served && entries.back().revents != 0) {
            return;
        }
    }
}

void ScriptedService::serveConnection(int socket) {
    Connection connection(socket, stop_);
    const bool scripted = used_ < answers_.size();
    const Answer chosen = scripted ? answers_[used_] : answer(599, R"({"message":"no scripted answer"})");

    std::string bytes;
    if (chosen.reading == Answer::Reading::nothing) {
        ++used_;
        if (chosen.ending == Answer::Ending::reset) {
            connection.reset();
        } else {
            connection.wait(POLLRDHUP);
        }
        return;
    }
    auto request = readHead(connection, bytes);
    if (!request) {
        faults_.push_back("a connection brought no whole request: " + bytes.substr(0, 200));
        return;
    }
    std::size_t sent = 0;
    if (chosen.reading == Answer::Reading::rest) {
        connection.send(chosen.pieces[sent++]);
    }
    if (chosen.reading != Answer::Reading::head) {
        const bool isSlow = chosen.reading == Answer::Reading::rest;
        readBody(connection, *request, bytes, isSlow ? chosen.pause : std::chrono::milliseconds(0));
    }
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(*request);
    }
    if (scripted) {
        used_ += chosen.use == Answer::Use::once ? 1 : 0;
        leaveIfAbsent();
    } else {
        faults_.push_back("no scripted answer for " + request->text().substr(0, 200));
    }

    bool open = true;
    for (; sent < chosen.pieces.size() && open; ++sent) {
        if (sent > 0) {
            connection.pause(chosen.pause);
        }
        open = connection.send(chosen.pieces[sent]);
    }
    if (chosen.ending == Answer::Ending::reset) {
        connection.reset();
    }
    if (chosen.ending != Answer::Ending::leaveOpen) {
        return;
    }
    if (chosen.reading == Answer::Reading::head) {
        connection.wait(POLLRDHUP);
        return;
    }
    while (connection.receive(bytes)) {
        ;
    }
    if (!bytes.empty() && request->body.size() == announcedSize(*request)) {
        faults_.push_back("bytes behind the end of a request: " + bytes.substr(0, 200));
    }
}

std::vector<RecordedRequest> ScriptedService::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

std::vector<std::string> ScriptedService::requestTexts() const {
    std::vector<std::string> texts;
    for (const RecordedRequest& request : requests()) {
        texts.push_back(request.text());
    }
    return texts;
}

} // namespace testsupport
