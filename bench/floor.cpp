// The least that a process can do to ask the service for its status: one connection, one request, one answer, printed.
// Built static and without the C++ library's streams, it is the floor that the tool's own time is measured against.
#include <cstdlib>
#include <cstring>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

int main() {
    static constexpr char request[] = "GET /api/status HTTP/1.1\r\nHost: localhost:44360\r\nConnection: close\r\n\r\n";
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(44360);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const int connection = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (connect(connection, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        send(connection, request, sizeof request - 1, 0) != static_cast<ssize_t>(sizeof request - 1)) {
        return EXIT_FAILURE;
    }
    char answer[65536];
    std::size_t length = 0;
    ssize_t count = 0;
    while ((count = recv(connection, answer + length, sizeof answer - length, 0)) > 0) {
        length += static_cast<std::size_t>(count);
    }
    const char* const body = static_cast<const char*>(memmem(answer, length, "\r\n\r\n", 4));
    if (body == nullptr) {
        return EXIT_FAILURE;
    }
    const auto size = static_cast<std::size_t>(answer + length - (body + 4));
    return write(STDOUT_FILENO, body + 4, size) == static_cast<ssize_t>(size) ? EXIT_SUCCESS : EXIT_FAILURE;
}
