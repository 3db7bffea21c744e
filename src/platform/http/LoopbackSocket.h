// A TCP connection to this machine itself, with a limit on every step.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <system_error>

struct sockaddr;
struct iovec;

namespace platform {

/// One connection; closed with the object. Operations that wait give up with std::errc::timed_out when they can make no
/// progress for `limit`. Each names its failure in `error` in the system's terms.
class LoopbackSocket {
public:
    LoopbackSocket() = default;
    ~LoopbackSocket();
    LoopbackSocket(const LoopbackSocket&) = delete;
    LoopbackSocket& operator=(const LoopbackSocket&) = delete;

    /// Connects to `host`: "localhost", which stands for ::1 and then 127.0.0.1, or a literal loopback address. An
    /// address that refuses or does not exist on this machine leaves its turn to the next;
    /// std::errc::connection_refused when none is left.
    void connect(std::string_view host, std::uint16_t port, std::chrono::milliseconds limit, std::error_code& error);

    /// Sends as many of the bytes of `pieces` as the connection takes at once and tells how many; may be none.
    std::size_t send(iovec* pieces, std::size_t count, std::error_code& error);

    /// From now on, the last piece of what is sent does not wait for the acknowledgement of the one before.
    void sendWithoutDelay();

    /// Receives at least one byte, or none at the end of the stream, into `data`, which holds `size` bytes.
    std::size_t receive(void* data, std::size_t size, std::chrono::milliseconds limit, std::error_code& error);

    /// Waits until the connection takes bytes again or has brought some. Whether there is something to receive; the end
    /// of the stream counts.
    bool waitToSendOrReceive(std::chrono::milliseconds limit, std::error_code& error);

    /// Waits until the connection takes bytes again.
    void waitToSend(std::chrono::milliseconds limit, std::error_code& error);

private:
    std::error_code connectTo(const sockaddr* address, unsigned addressSize, std::chrono::milliseconds limit);
    short waitFor(short events, std::chrono::milliseconds limit, std::error_code& error) const;
    void close();

    int socket_ = -1;
    bool isDrained_ = true; ///< Nothing was left to receive when last looked at.
};

} // namespace platform
