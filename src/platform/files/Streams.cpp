#include "platform/files/Streams.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/uio.h>
#include <unistd.h>

#include "platform/files/Files.h"

namespace platform {

namespace {

void waitUntil(int descriptor, short event) {
    pollfd entry{descriptor, event, 0};
    ::poll(&entry, 1, -1);
}

/// Writes everything, whatever the descriptor's blocking mode; the error number, or 0.
int writeAll(int descriptor, std::vector<iovec> pieces) {
    auto piece = pieces.begin();
    while (piece != pieces.end()) {
        const ssize_t written = ::writev(descriptor, &*piece, static_cast<int>(pieces.end() - piece));
        if (written < 0) {
            if (errno == EAGAIN) {
                waitUntil(descriptor, POLLOUT);
            } else if (errno != EINTR) {
                return errno;
            }
            continue;
        }
        auto left = static_cast<std::size_t>(written);
        while (piece != pieces.end() && left >= piece->iov_len) {
            left -= piece->iov_len;
            ++piece;
        }
        if (piece != pieces.end()) {
            piece->iov_base = static_cast<char*>(piece->iov_base) + left;
            piece->iov_len -= left;
        }
    }
    return 0;
}

int writeAll(int descriptor, std::span<const std::string_view> texts) {
    std::vector<iovec> pieces;
    for (const std::string_view text : texts) {
        if (!text.empty()) {
            pieces.push_back({const_cast<char*>(text.data()), text.size()});
        }
    }
    return writeAll(descriptor, std::move(pieces));
}

/// The number of bytes read from standard input; 0 at its end.
std::size_t readSome(char* buffer, std::size_t size) {
    while (true) {
        const ssize_t count = ::read(STDIN_FILENO, buffer, size);
        if (count >= 0) {
            return static_cast<std::size_t>(count);
        }
        if (errno == EAGAIN) {
            waitUntil(STDIN_FILENO, POLLIN);
        } else if (errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "Could not read standard input");
        }
    }
}

} // namespace

void writeStandardOutput(std::span<const std::string_view> pieces) {
    if (const int error = writeAll(STDOUT_FILENO, pieces); error != 0) {
        throw OutputError(std::string("Could not write to standard output: ") + std::strerror(error));
    }
}

void writeStandardOutput(std::initializer_list<std::string_view> pieces) {
    writeStandardOutput(std::span(pieces.begin(), pieces.size()));
}

void writeStandardOutput(std::string_view text) {
    writeStandardOutput({text});
}

void writeStandardError(std::string_view text) {
    writeAll(STDERR_FILENO, std::span(&text, 1));
}

bool isTerminal(Stream stream) {
    return ::isatty(static_cast<int>(stream)) == 1;
}

int terminalWidth() {
    winsize size{};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

std::string readStandardInput() {
    std::string text;
    if (const std::error_code error = readToEnd(STDIN_FILENO, text)) {
        throw std::system_error(error, "Could not read standard input");
    }
    return text;
}

std::string readStandardInputLine() {
    // A byte at a time: what follows the line is left to whoever reads next.
    std::string line;
    char byte = 0;
    while (readSome(&byte, 1) == 1 && byte != '\n') {
        line += byte;
    }
    return line;
}

void reserveStandardStreams() {
    // One call tells of all three which of them are closed.
    std::array<pollfd, 3> streams{{{STDIN_FILENO, 0, 0}, {STDOUT_FILENO, 0, 0}, {STDERR_FILENO, 0, 0}}};
    if (::poll(streams.data(), streams.size(), 0) <= 0) {
        return;
    }
    for (const pollfd& stream : streams) {
        if ((stream.revents & POLLNVAL) != 0) {
            // The lowest free descriptor is the closed one, for those below it are open by now. Input becomes a
            // directory that is only named: neither that nor what opens /dev/stdin once more can be read.
            stream.fd == STDIN_FILENO ? ::open("/", O_PATH) : ::open("/dev/null", O_RDONLY);
        }
    }
}

} // namespace platform
