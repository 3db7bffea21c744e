#include "platform/http/LoopbackSocket.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>

namespace platform {

namespace {

std::error_code systemError(int number) {
    return {number, std::generic_category()};
}

bool wouldBlock(int number) {
    return number == EAGAIN || number == EWOULDBLOCK;
}

bool isAbsent(const std::error_code& error) {
    switch (error.value()) {
    case ECONNREFUSED:
    case EAFNOSUPPORT:
    case EADDRNOTAVAIL:
    case ENETUNREACH:
    case ENETDOWN:
    case EHOSTUNREACH:
        return true;
    default:
        return false;
    }
}

/// A port from the range of outgoing ports can be connected to itself when nothing listens on it.
bool isConnectedToItself(int socket, const sockaddr* peer, socklen_t peerSize) {
    sockaddr_storage own{};
    socklen_t ownSize = sizeof own;
    return ::getsockname(socket, reinterpret_cast<sockaddr*>(&own), &ownSize) == 0 && ownSize == peerSize &&
           std::memcmp(&own, peer, peerSize) == 0;
}

} // namespace

LoopbackSocket::~LoopbackSocket() {
    close();
}

void LoopbackSocket::close() {
    if (socket_ >= 0) {
        ::close(socket_);
    }
    socket_ = -1;
}

void LoopbackSocket::connect(std::string_view host, std::uint16_t port, std::chrono::milliseconds limit,
                             std::error_code& error) {
    const bool anyFamily = host == "localhost";
    if (host.starts_with('[') && host.ends_with(']')) {
        host = host.substr(1, host.size() - 2);
    }
    const std::string address(host);

    sockaddr_in6 six{};
    six.sin6_family = AF_INET6;
    six.sin6_port = htons(port);
    sockaddr_in four{};
    four.sin_family = AF_INET;
    four.sin_port = htons(port);

    error = std::make_error_code(std::errc::invalid_argument);
    const bool hasSix = ::inet_pton(AF_INET6, anyFamily ? "::1" : address.c_str(), &six.sin6_addr) == 1;
    if (hasSix && IN6_IS_ADDR_LOOPBACK(&six.sin6_addr)) {
        error = connectTo(reinterpret_cast<const sockaddr*>(&six), sizeof six, limit);
    }
    if (hasSix && !(anyFamily && isAbsent(error))) {
        return;
    }
    const bool hasFour = ::inet_pton(AF_INET, anyFamily ? "127.0.0.1" : address.c_str(), &four.sin_addr) == 1;
    if (hasFour && ntohl(four.sin_addr.s_addr) >> 24U == IN_LOOPBACKNET) {
        error = connectTo(reinterpret_cast<const sockaddr*>(&four), sizeof four, limit);
    }
}

std::error_code LoopbackSocket::connectTo(const sockaddr* address, unsigned addressSize,
                                          std::chrono::milliseconds limit) {
    const auto refused = std::make_error_code(std::errc::connection_refused);
    close();
    socket_ = ::socket(address->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket_ < 0) {
        return isAbsent(systemError(errno)) ? refused : systemError(errno);
    }

    int outcome = ::connect(socket_, address, addressSize) == 0 ? 0 : errno;
    // An interrupted attempt to connect goes on by itself, like one that was merely started.
    if (outcome == EINPROGRESS || outcome == EINTR) {
        std::error_code error;
        const short events = waitFor(POLLOUT, limit, error);
        if (error) {
            return error;
        }
        outcome = 0;
        socklen_t size = sizeof outcome;
        if ((events & POLLERR) != 0 && ::getsockopt(socket_, SOL_SOCKET, SO_ERROR, &outcome, &size) != 0) {
            outcome = errno;
        }
    }
    if (outcome == 0 && isConnectedToItself(socket_, address, addressSize)) {
        // Without an orderly end: its traces would keep the service from listening for a minute.
        const linger atOnce{1, 0};
        ::setsockopt(socket_, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
        close();
        return refused;
    }
    if (outcome == 0) {
        return {};
    }
    return isAbsent(systemError(outcome)) ? refused : systemError(outcome);
}

std::size_t LoopbackSocket::send(iovec* pieces, std::size_t count, std::error_code& error) {
    msghdr message{};
    message.msg_iov = pieces;
    message.msg_iovlen = count;
    for (;;) {
        const ssize_t sent = ::sendmsg(socket_, &message, MSG_NOSIGNAL);
        if (sent >= 0) {
            return static_cast<std::size_t>(sent);
        }
        if (errno == EINTR) {
            continue;
        }
        if (!wouldBlock(errno)) {
            error = systemError(errno);
        }
        return 0;
    }
}

void LoopbackSocket::sendWithoutDelay() {
    const int on = 1;
    ::setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

std::size_t LoopbackSocket::receive(void* data, std::size_t size, std::chrono::milliseconds limit,
                                    std::error_code& error) {
    for (;;) {
        if (isDrained_) {
            waitFor(POLLIN, limit, error);
            if (error) {
                return 0;
            }
        }
        const ssize_t received = ::recv(socket_, data, size, 0);
        if (received >= 0) {
            isDrained_ = static_cast<std::size_t>(received) < size;
            return static_cast<std::size_t>(received);
        }
        if (wouldBlock(errno)) {
            isDrained_ = true;
        } else if (errno != EINTR) {
            error = systemError(errno);
            return 0;
        }
    }
}

bool LoopbackSocket::waitToSendOrReceive(std::chrono::milliseconds limit, std::error_code& error) {
    const bool canReceive = (waitFor(POLLIN | POLLOUT, limit, error) & ~POLLOUT) != 0;
    isDrained_ = isDrained_ && !canReceive;
    return canReceive;
}

void LoopbackSocket::waitToSend(std::chrono::milliseconds limit, std::error_code& error) {
    waitFor(POLLOUT, limit, error);
}

/// The events that have come; none with `error` alone.
short LoopbackSocket::waitFor(short events, std::chrono::milliseconds limit, std::error_code& error) const {
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + limit;
    for (;;) {
        const auto left = std::max(deadline - Clock::now(), Clock::duration::zero());
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
        const timespec timeout{seconds.count(), (left - seconds).count()};
        pollfd entry{socket_, events, 0};
        const int ready = ::ppoll(&entry, 1, &timeout, nullptr);
        if (ready > 0) {
            return entry.revents;
        }
        if (ready < 0 && errno == EINTR) {
            continue;
        }
        error = ready == 0 ? std::make_error_code(std::errc::timed_out) : systemError(errno);
        return 0;
    }
}

} // namespace platform
