// A service for measurements: it answers at the application's port with canned bytes, as fast as a socket takes them,
// so that what is measured is the client. How much it answers is said by the request:
//   GET /api/status                  a status of six rows
//   GET /api/nodes?name=N            a page of N nodes; without a name, as many as "limit" says
//   GET /api/nodes/<id>              a node whose text has as many bytes as the last group of the id says, in decimal
//   GET /api/nodes/search?q=N        N results with bodies of 5 KB
//   GET /api/check-in?recentLimit=N  a profile of one card, with as many fields as the least number of N digits says
//   anything with a body             the body is read and dropped, and a small object answered
// It serves one request a connection, one connection after another, and says "ready" once it listens.
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <net/if.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::uint16_t port = 44360;

std::size_t decimal(std::string_view text) {
    std::size_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// The value of `key` in the query of `target`; empty when it is absent.
std::string_view queryValue(std::string_view target, std::string_view key) {
    std::size_t start = target.find('?');
    while (start != std::string_view::npos) {
        const std::string_view rest = target.substr(start + 1);
        const std::string_view item = rest.substr(0, rest.find('&'));
        if (item.size() > key.size() && item.starts_with(key) && item[key.size()] == '=') {
            return item.substr(key.size() + 1);
        }
        start = target.find('&', start + 1);
    }
    return {};
}

/// A UUID that ends in `number`.
std::string identifier(std::size_t number) {
    char text[64];
    std::snprintf(text, sizeof text, "7f1b103c-df15-42b0-aab4-%012zu", number);
    return text;
}

/// About `size` bytes of prose as they stand between the quotes of a JSON text: lines, some quotes, some letters beyond
/// ASCII.
std::string prose(std::size_t size) {
    static constexpr std::string_view lines[] = {
        "The spring teas are in: two Assams, a first flush and the smoky one from last year.\\n",
        "- ask for the price of the \\\"large\\\" tins, with and without the printed labels\\n",
        "- the warehouse in Malmö closes at four on Fridays; Ingrid has the key until Monday\\n",
        "\\n",
        "    const total = orders.map(order => order.price).reduce((sum, price) => sum + price);\\n",
        "What is left of the winter catalogue goes to the archive once the photographs are back.\\n"};
    std::string text;
    text.reserve(size);
    for (std::size_t i = 0;; ++i) {
        const std::string_view line = lines[i % std::size(lines)];
        if (text.size() + line.size() > size) {
            return text.append(size - text.size(), '.');
        }
        text += line;
    }
}

std::string nodeRecord(std::size_t number) {
    static constexpr const char* kinds[] = {"orvane_context", "chatgpt_transcript", "apple_note", "email_thread"};
    static constexpr const char* owners[] = {
        R"({"isCurrentUser":true,"email":"mara.ellison@example.com","displayName":"Mara Ellison"})",
        R"({"isCurrentUser":false,"email":"tomas.lindqvist@example.com","displayName":"Tomas Lindqvist"})"};
    static constexpr const char* names[] = {"Spring catalogue", "Notes on the \\\"smoky\\\" Assam — second tasting",
                                            "Lagerhäuser, Umzug und Versand", "price rounding in the order form"};
    return std::string(R"({"id":")") + identifier(number) + R"(","kind":")" + kinds[number % 4] + R"(","name":")" +
           names[number / 4 % 4] + " " + std::to_string(number) + R"(","isContainer":false,"parentId":")" +
           identifier(0) + R"(","sourceOwner":)" + owners[number % 5 == 0 ? 1 : 0] + R"(,"originalUpdatedAt":"Mar )" +
           std::to_string(number % 28 + 1) + R"(, 2026, 2:05 PM UTC","updatedAt":"Apr 7, 2026, 9:15 AM UTC"})";
}

std::string nodesPage(std::size_t count) {
    std::string json = R"({"nodes":[)";
    for (std::size_t i = 0; i < count; ++i) {
        json += (i == 0 ? "" : ",") + nodeRecord(i);
    }
    const std::string number = std::to_string(count);
    return json + R"(],"offset":0,"limit":)" + number + R"(,"returned":)" + number + R"(,"total":)" + number +
           R"(,"hasMore":false})";
}

std::string nodeWithText(std::size_t size) {
    std::string json = nodeRecord(1);
    json.pop_back();
    return json + R"(,"read":{"total":)" + std::to_string(size) + R"(,"content":")" + prose(size) + R"("}})";
}

std::string searchResults(std::size_t count) {
    constexpr std::size_t bodySize = 5000;
    const std::string body = prose(bodySize);
    std::string json = R"({"results":[)";
    for (std::size_t i = 0; i < count; ++i) {
        json += std::string(i == 0 ? "" : ",") + R"({"nodeId":")" + identifier(i) + R"(","title":"Spring catalogue )" +
                std::to_string(i) + R"(","score":0.875,"document":)" + nodeRecord(i) + R"(,"body":")" + body + R"("})";
    }
    return json + R"(],"exhaustive":true})";
}

std::string checkIn(std::size_t digits) {
    std::size_t count = 1;
    for (std::size_t i = 1; i < digits; ++i) {
        count *= 10;
    }
    std::string json = R"({"profile":{"available":true,"sections":[{"name":"people","value":[{)";
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        json += (i == 0 ? "\"field_" : ",\"field_") + number + R"(":"value )" + number + "\"";
    }
    return json + "}]}]}}";
}

std::string body(std::string_view method, std::string_view target) {
    if (method != "GET") {
        return R"({"id":"7f1b103c-df15-42b0-aab4-000000000000","contextId":"7f1b103c-df15-42b0-aab4-000000000000",)"
               R"("name":"Spring tasting"})";
    }
    const std::string_view path = target.substr(0, target.find('?'));
    if (path == "/api/nodes/search") {
        return searchResults(decimal(queryValue(target, "q")));
    }
    if (path == "/api/check-in") {
        return checkIn(decimal(queryValue(target, "recentLimit")));
    }
    if (path == "/api/nodes") {
        const std::string_view name = queryValue(target, "name");
        return nodesPage(decimal(name.empty() ? queryValue(target, "limit") : name));
    }
    if (path.starts_with("/api/nodes/")) {
        return nodeWithText(decimal(path.substr(path.rfind('-') + 1)));
    }
    return R"({"status":"ok","version":"1.2.3","build_number":"45","cli_access":true,"authenticated":true,)"
           R"("user":{"name":"Mara Ellison","email":"mara.ellison@example.com"},)"
           R"("lastIngestionAt":"Mar 7, 2026, 2:05 PM UTC","lastCloudSyncAt":"Mar 7, 2026, 2:10 PM UTC"})";
}

/// Whole answers by request line; each is made when it is first asked for.
const std::string& answer(std::string_view method, std::string_view target) {
    static std::map<std::string, std::string> answers;
    std::string& bytes = answers[std::string(method) + " " + std::string(target)];
    if (bytes.empty()) {
        const std::string json = body(method, target);
        bytes = "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: " + std::to_string(json.size()) +
                "\r\n\r\n" + json;
    }
    return bytes;
}

/// The length of the body that `head` announces.
std::size_t contentLength(std::string_view head) {
    static constexpr std::string_view field = "\r\nContent-Length: ";
    const std::size_t found = head.find(field);
    return found == std::string_view::npos ? 0 : decimal(head.substr(found + field.size()));
}

void serve(int connection) {
    static std::vector<char> buffer(1U << 20U);
    std::string head;
    std::size_t end = std::string::npos;
    while ((end = head.find("\r\n\r\n")) == std::string::npos) {
        const ssize_t count = recv(connection, buffer.data(), buffer.size(), 0);
        if (count <= 0) {
            return;
        }
        head.append(buffer.data(), static_cast<std::size_t>(count));
    }
    if (head.find("Expect: 100-continue") < end) {
        send(connection, "HTTP/1.1 100 Continue\r\n\r\n", 25, MSG_NOSIGNAL);
    }
    std::size_t arrived = head.size() - (end + 4);
    const std::size_t announced = contentLength(head);
    while (arrived < announced) {
        const ssize_t count = recv(connection, buffer.data(), buffer.size(), 0);
        if (count <= 0) {
            return;
        }
        arrived += static_cast<std::size_t>(count);
    }
    const std::string_view line = std::string_view(head).substr(0, head.find("\r\n"));
    const std::size_t blank = line.find(' ');
    std::string_view rest = answer(line.substr(0, blank), line.substr(blank + 1, line.rfind(' ') - blank - 1));
    while (!rest.empty()) {
        const ssize_t count = send(connection, rest.data(), rest.size(), MSG_NOSIGNAL);
        if (count <= 0) {
            return;
        }
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
}

/// A socket that listens on loopback; -1 when it can't be had.
int listener(int family) {
    const int socket = ::socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    sockaddr_in6 address6{};
    address6.sin6_family = AF_INET6;
    address6.sin6_port = htons(port);
    address6.sin6_addr = in6addr_loopback;
    sockaddr_in address4{};
    address4.sin_family = AF_INET;
    address4.sin_port = htons(port);
    address4.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const auto* const address = family == AF_INET6 ? reinterpret_cast<const sockaddr*>(&address6)
                                                   : reinterpret_cast<const sockaddr*>(&address4);
    const socklen_t length = family == AF_INET6 ? sizeof address6 : sizeof address4;
    if (socket < 0 || bind(socket, address, length) != 0 || listen(socket, SOMAXCONN) != 0) {
        close(socket);
        return -1;
    }
    return socket;
}

/// A network of one's own begins with its loopback down.
void bringUpLoopback() {
    const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request{};
    std::strcpy(request.ifr_name, "lo");
    if (ioctl(socket, SIOCGIFFLAGS, &request) == 0 && (request.ifr_flags & IFF_UP) == 0) {
        request.ifr_flags = static_cast<short>(request.ifr_flags | IFF_UP);
        ioctl(socket, SIOCSIFFLAGS, &request);
    }
    close(socket);
}

} // namespace

int main() {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    bringUpLoopback();
    std::vector<pollfd> listeners;
    for (const int family : {AF_INET, AF_INET6}) {
        if (const int socket = listener(family); socket >= 0) {
            listeners.push_back({socket, POLLIN, 0});
        } else if (family == AF_INET) {
            std::perror("bench-service: port 44360");
            return EXIT_FAILURE;
        }
    }
    std::puts("ready");
    std::fflush(stdout);
    for (;;) {
        poll(listeners.data(), listeners.size(), -1);
        for (const pollfd& ready : listeners) {
            if (ready.revents != 0) {
                const int connection = accept4(ready.fd, nullptr, nullptr, SOCK_CLOEXEC);
                serve(connection);
                close(connection);
            }
        }
    }
}
