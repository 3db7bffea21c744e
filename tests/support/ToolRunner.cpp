#include "support/ToolRunner.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string_view>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace testsupport {

namespace {

using Clock = std::chrono::steady_clock;

void check(bool fine, const char* what, int error = errno) {
    if (!fine) {
        throw std::system_error(error, std::generic_category(), what);
    }
}

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number, const char* what) : number_(number) { check(number >= 0, what); }
    ~Descriptor() { reset(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    int get() const { return number_; }
    void reset() {
        if (number_ >= 0) {
            ::close(std::exchange(number_, -1));
        }
    }

private:
    int number_ = -1;
};

/// The two ends of a stream: the tool's, and ours where there is one.
struct Ends {
    Descriptor theirs{};
    Descriptor ours{};
};

void makeNonBlocking(const Descriptor& descriptor) {
    check(::fcntl(descriptor.get(), F_SETFL, ::fcntl(descriptor.get(), F_GETFL) | O_NONBLOCK) == 0, "fcntl");
}

Ends makeTerminal(unsigned short columns) {
    Ends ends;
    ends.ours = Descriptor(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC), "posix_openpt");
    check(::grantpt(ends.ours.get()) == 0 && ::unlockpt(ends.ours.get()) == 0, "unlockpt");
    std::array<char, 128> name{};
    check(::ptsname_r(ends.ours.get(), name.data(), name.size()) == 0, "ptsname_r");
    ends.theirs = Descriptor(::open(name.data(), O_RDWR | O_NOCTTY | O_CLOEXEC), "open terminal");
    termios modes{};
    check(::tcgetattr(ends.theirs.get(), &modes) == 0, "tcgetattr");
    modes.c_oflag &= ~static_cast<tcflag_t>(OPOST);
    modes.c_lflag &= ~static_cast<tcflag_t>(ECHO | ECHONL | ISIG);
    check(::tcsetattr(ends.theirs.get(), TCSANOW, &modes) == 0, "tcsetattr");
    const winsize size{24, columns, 0, 0};
    check(::ioctl(ends.ours.get(), TIOCSWINSZ, &size) == 0, "TIOCSWINSZ");
    makeNonBlocking(ends.ours);
    return ends;
}

/// The reading end first.
std::pair<Descriptor, Descriptor> makePipe() {
    std::array<int, 2> ends{};
    check(::pipe2(ends.data(), O_CLOEXEC) == 0, "pipe2");
    return {Descriptor(ends[0], "pipe2"), Descriptor(ends[1], "pipe2")};
}

Ends openInput(const Input& input) {
    switch (input.kind) {
    case Input::Kind::null:
        return {Descriptor(::open("/dev/null", O_RDONLY | O_CLOEXEC), "open /dev/null"), {}};
    case Input::Kind::pipe: {
        auto [reader, writer] = makePipe();
        makeNonBlocking(writer);
        return {std::move(reader), std::move(writer)};
    }
    case Input::Kind::terminal:
        return makeTerminal(80);
    case Input::Kind::closed:
        break;
    }
    return {};
}

Ends openOutput(const Output& output) {
    switch (output.kind) {
    case Output::Kind::pipe:
    case Output::Kind::brokenPipe: {
        auto [reader, writer] = makePipe();
        makeNonBlocking(reader);
        if (output.kind == Output::Kind::brokenPipe) {
            reader.reset();
        }
        return {std::move(writer), std::move(reader)};
    }
    case Output::Kind::terminal:
        return makeTerminal(output.columns);
    case Output::Kind::file:
        return {Descriptor(::open(output.path.c_str(), O_WRONLY | O_CLOEXEC), "open output"), {}};
    case Output::Kind::closed:
        break;
    }
    return {};
}

std::vector<std::string> environmentOf(const ToolSetting& setting) {
    auto variables = setting.environment;
    variables.insert({{"PATH", "/usr/bin:/bin"},
                      {"HOME", "/nonexistent-home"},
                      {"TZ", "UTC"},
                      {"COLUMNS", "80"},
                      {"LANG", "C.UTF-8"}});
    std::vector<std::string> texts;
    for (const auto& [name, value] : variables) {
        if (value) {
            texts.push_back(name + "=" + *value);
        }
    }
    return texts;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

pid_t start(const std::vector<std::string>& arguments, const ToolSetting& setting,
            const std::array<const Descriptor*, 3>& streams) {
    std::vector<std::string> words{setting.binary};
    words.insert(words.end(), arguments.begin(), arguments.end());
    auto variables = environmentOf(setting);

    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawnattr_init(&attributes);
    for (int number = 0; number < 3; ++number) {
        const int source = streams[static_cast<std::size_t>(number)]->get();
        if (source >= 0) {
            ::posix_spawn_file_actions_adddup2(&actions, source, number);
        } else {
            ::posix_spawn_file_actions_addclose(&actions, number);
        }
    }
    if (!setting.directory.empty()) {
        ::posix_spawn_file_actions_addchdir_np(&actions, setting.directory.c_str());
    }
    sigset_t defaults;
    sigemptyset(&defaults);
    ::posix_spawnattr_setsigmask(&attributes, &defaults);
    sigaddset(&defaults, SIGPIPE);
    ::posix_spawnattr_setsigdefault(&attributes, &defaults);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);

    pid_t process = -1;
    const int error = ::posix_spawn(&process, setting.binary.c_str(), &actions, &attributes, pointersTo(words).data(),
                                    pointersTo(variables).data());
    ::posix_spawn_file_actions_destroy(&actions);
    ::posix_spawnattr_destroy(&attributes);
    check(error == 0, setting.binary.c_str(), error);
    return process;
}

/// Takes what is there; closes our end when there will be no more.
void readSome(Descriptor& source, std::string& text) {
    std::array<char, 65536> buffer;
    const ssize_t size = ::read(source.get(), buffer.data(), buffer.size());
    if (size > 0) {
        text.append(buffer.data(), static_cast<std::size_t>(size));
    } else if (size == 0 || errno != EAGAIN) {
        source.reset();
    }
}

/// Gives what is taken. A pipe ends behind the text; a terminal stays, for its end was typed.
void writeSome(Descriptor& target, std::string_view& text, bool endsByClosing) {
    const ssize_t size = ::write(target.get(), text.data(), text.size());
    if (size > 0) {
        text.remove_prefix(static_cast<std::size_t>(size));
    } else if (size < 0 && errno != EAGAIN) {
        text = {};
    }
    if (text.empty() && endsByClosing) {
        target.reset();
    }
}

std::string typedText(const std::string& text) {
    return text + (text.empty() || text.ends_with('\n') ? "\x04" : "\x04\x04");
}

} // namespace

bool toolIsEmulated() {
    return std::getenv("ORVANE_EMULATED_CLI") != nullptr;
}

const std::string& toolBinary() {
    static const std::string binary = toolIsEmulated() ? std::getenv("ORVANE_EMULATED_CLI") : ORVANE_CLI_BINARY;
    return binary;
}

ToolResult runTool(const std::vector<std::string>& arguments, const ToolSetting& setting) {
    Ends in = openInput(setting.input);
    Ends out = openOutput(setting.out);
    Ends err = openOutput(setting.err);
    if (!setting.waits) {
        makeNonBlocking(in.theirs);
        makeNonBlocking(out.theirs);
    }
    const pid_t process = start(arguments, setting, {&in.theirs, &out.theirs, &err.theirs});
    for (Ends* ends : {&in, &out, &err}) {
        ends->theirs.reset();
    }

    const bool typed = setting.input.kind == Input::Kind::terminal;
    const std::string inputText = typed ? typedText(setting.input.text) : setting.input.text;
    std::string_view unsent = inputText;
    if (!typed && unsent.empty()) {
        in.ours.reset();
    }

    ToolResult result;
    const Descriptor ended(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)), "pidfd_open");
    const auto deadline = Clock::now() + setting.limit;
    bool running = true;
    while (running || out.ours.get() >= 0 || err.ours.get() >= 0) {
        std::array<pollfd, 4> entries{{{unsent.empty() ? -1 : in.ours.get(), POLLOUT, 0},
                                       {out.ours.get(), POLLIN, 0},
                                       {err.ours.get(), POLLIN, 0},
                                       {running ? ended.get() : -1, POLLIN, 0}}};
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) {
            ADD_FAILURE() << "the tool did not end within " << setting.limit.count() << " s; standard output:\n"
                          << result.out << "\nstandard error:\n"
                          << result.err;
            ::kill(process, SIGKILL);
            break;
        }
        if (::poll(entries.data(), entries.size(), static_cast<int>(left)) <= 0) {
            continue;
        }
        if (entries[0].revents != 0) {
            writeSome(in.ours, unsent, !typed);
        }
        if (entries[1].revents != 0) {
            readSome(out.ours, result.out);
        }
        if (entries[2].revents != 0) {
            readSome(err.ours, result.err);
        }
        running = running && entries[3].revents == 0;
    }

    int state = 0;
    rusage usage{};
    while (::wait4(process, &state, 0, &usage) < 0 && errno == EINTR) {
        ;
    }
    result.status = WIFEXITED(state) ? WEXITSTATUS(state) : -1;
    result.signal = WIFSIGNALED(state) ? WTERMSIG(state) : 0;
    result.pageFaults = usage.ru_minflt;
    return result;
}

} // namespace testsupport
