// sample-library: an in-memory library behind the service's wire format, for trying the command-line client.
#include <cstdio>
#include <optional>

#include "CommandLine.h"
#include "LogFile.h"
#include "Server.h"
#include "library/Library.h"

namespace {

constexpr int wrongUse = 64;

void run(const sample::CommandLine& line) {
    sample::Library library = sample::loadLibrary(line.dataFile);
    std::optional<sample::LogFile> file;
    if (line.logFile) {
        file.emplace(*line.logFile);
    }
    const auto log = [&](const sample::Exchange& exchange) {
        if (line.logsToTerminal) {
            std::fputs(sample::asBlock(exchange).c_str(), stderr);
        }
        if (file) {
            file->add(sample::asJsonLine(exchange));
        }
    };
    sample::serve(library, line.port, {line.delay, line.failure, line.closes, log}, [&](std::uint16_t taken) {
        std::printf("Sample library with %zu nodes at http://localhost:%u (Ctrl-C ends it)\n", library.nodes.size(),
                    unsigned{taken});
        std::fflush(stdout);
    });
}

} // namespace

int main(int count, char** words) {
    try {
        const auto line = sample::parseCommandLine(std::span(words, static_cast<std::size_t>(count)).subspan(1));
        if (line.wantsHelp) {
            std::fputs(sample::helpText, stdout);
        } else {
            run(line);
        }
        return 0;
    } catch (const sample::UsageError& error) {
        std::fprintf(stderr, "sample-library: %s\nSee 'sample-library --help'.\n", error.what());
        return wrongUse;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "sample-library: %s\n", error.what());
        return 1;
    }
}
