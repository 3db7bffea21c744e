// A TCP connection to this machine itself, with an idle limit on every step.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <system_error>

struct sockaddr;
struct iovec;

namespace platform {

/// One connection; closed with the object. Every operation gives up with std::errc::timed_out when it can make no
/// progress for the idle limit, and names its failure in `error` in the system's terms.
class LoopbackSocket {
public:
    /// `idleLimit` is in seconds.
    explicit LoopbackSocket(double idleLimit);
    ~LoopbackSocket();
    LoopbackSocket(const LoopbackSocket&) = delete;
    LoopbackSocket& operator=(const LoopbackSocket&) = delete;

    /// Connects to `host`: "localhost", which stands for ::1 and then 127.0.0.1, or a literal loopback address. An
    /// address that refuses or does not exist on this machine leaves its turn to the next;
    /// std::errc::connection_refused when none is left.
    void connect(std::string_view host, std::uint16_t port, std::error_code& error);

    /// Sends some of the bytes of `pieces` and tells how many.
    std::size_t send(iovec* pieces, std::size_t count, std::error_code& error);

    /// Receives at least one byte, or none at the end of the stream, into `data`, which holds `size` bytes.
    std::size_t receive(void* data, std::size_t size, std::error_code& error);

private:
    std::error_code connectTo(const sockaddr* address, unsigned addressSize);
    bool waitFor(short event, std::error_code& error) const;
    void close();

    std::chrono::nanoseconds idleLimit_;
    int socket_ = -1;
};

} // namespace platform
