// sample-library: an in-memory library behind the service's wire format, for trying the command-line client.
#include <charconv>
#include <cstdio>
#include <optional>

#include "library.h"
#include "server.h"

namespace {

struct Options {
    std::string dataFile;
    std::uint16_t port = 44360;
};

std::optional<Options> readOptions(const std::vector<std::string_view>& arguments) {
    Options options;
    for (std::size_t at = 0; at < arguments.size(); ++at) {
        const std::string_view argument = arguments[at];
        if (argument == "--port" && at + 1 < arguments.size()) {
            const std::string_view digits = arguments[++at];
            const char* end = digits.data() + digits.size();
            const auto [stop, error] = std::from_chars(digits.data(), end, options.port);
            if (error != std::errc() || stop != end) {
                return std::nullopt;
            }
        } else if (options.dataFile.empty() && !argument.empty() && !argument.starts_with('-')) {
            options.dataFile = argument;
        } else {
            return std::nullopt;
        }
    }
    if (options.dataFile.empty()) {
        return std::nullopt;
    }
    return options;
}

void run(const Options& options) {
    sample::Library library = sample::loadLibrary(options.dataFile);
    const auto ready = [&](std::uint16_t port) {
        std::printf("Sample library with %zu nodes at http://localhost:%u (Ctrl-C ends it)\n", library.nodes.size(),
                    unsigned{port});
        std::fflush(stdout);
    };
    sample::serve(library, options.port, ready);
}

} // namespace

int main(int count, char** words) {
    const auto options = readOptions({words + 1, words + count});
    if (!options) {
        std::fputs("Usage: sample-library DATAFILE [--port N]\n", stderr);
        return 1;
    }
    try {
        run(*options);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "sample-library: %s\n", error.what());
        return 1;
    }
}
