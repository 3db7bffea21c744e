#include "support/SampleLibrary.h"

#include <array>
#include <csignal>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace testsupport {

SampleLibrary::SampleLibrary(std::vector<std::string> options, const std::string& err) {
    std::array<int, 2> ready{};
    if (::pipe2(ready.data(), O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ready[1], STDOUT_FILENO);
    if (!err.empty()) {
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, err.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    }
    std::vector<char*> arguments{const_cast<char*>(SAMPLE_LIBRARY_BINARY)};
    for (std::string& option : options) {
        arguments.push_back(option.data());
    }
    arguments.insert(arguments.end(), {const_cast<char*>(SAMPLE_LIBRARY_DATA), nullptr});
    std::string variable = "TZ=UTC";
    std::array<char*, 2> environment{variable.data(), nullptr};
    const int error =
        ::posix_spawn(&process_, SAMPLE_LIBRARY_BINARY, &actions, nullptr, arguments.data(), environment.data());
    posix_spawn_file_actions_destroy(&actions);
    ::close(ready[1]);
    // Its first line says that it serves; without one it ended, and said why on standard error.
    char byte = 0;
    const bool isReady = error == 0 && ::read(ready[0], &byte, 1) == 1;
    ::close(ready[0]);
    if (!isReady) {
        throw std::runtime_error("the sample library does not start");
    }
}

SampleLibrary::~SampleLibrary() {
    ::kill(process_, SIGTERM);
    ::waitpid(process_, nullptr, 0);
}

} // namespace testsupport
