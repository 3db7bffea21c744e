// sample-library: an in-memory library behind the service's wire format, for trying the command-line client.
#include <charconv>
#include <cstdio>
#include <optional>

#include "Server.h"
#include "library/Library.h"

namespace {

constexpr std::uint16_t servicePort = 44360;

std::optional<std::uint16_t> parsePort(std::string_view text) {
    std::uint16_t port = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), port);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(port) : std::nullopt;
}

void run(const char* dataFile, std::uint16_t port) {
    sample::Library library = sample::loadLibrary(dataFile);
    sample::serve(library, port, [&](std::uint16_t taken) {
        std::printf("Sample library with %zu nodes at http://localhost:%u (Ctrl-C ends it)\n", library.nodes.size(),
                    unsigned{taken});
        std::fflush(stdout);
    });
}

} // namespace

int main(int count, char** words) {
    const bool withPort = count == 4 && std::string_view(words[2]) == "--port";
    const auto port = withPort ? parsePort(words[3]) : servicePort;
    if (!port || (count != 2 && !withPort)) {
        std::fputs("Usage: sample-library DATAFILE [--port N]\n", stderr);
        return 1;
    }
    try {
        run(words[1], *port);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "sample-library: %s\n", error.what());
        return 1;
    }
}
