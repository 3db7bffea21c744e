#include <csignal>
#include <system_error>
#include <thread>

#include "platform/files/Files.h"
#include "platform/files/PrivateFiles.h"
#include "support/TemporaryFiles.h"

using namespace platform;

namespace {

namespace fs = std::filesystem;

volatile std::sig_atomic_t isSignalled = 0;

class PrivateFiles : public testsupport::TemporaryFiles {
protected:
    /// Writes a long file while `signal` comes, or just before or behind it. Whether it was written.
    bool isWrittenIn(int signal) const {
        const pthread_t writer = ::pthread_self();
        const std::jthread other([&] {
            while (fs::is_empty(directory)) {
            }
            ::pthread_kill(writer, signal);
        });
        try {
            writePrivateFile({directory, "a"}, bytes);
            return true;
        } catch (const std::system_error&) {
            file("b", ""); // Ends the other thread in any case.
            return false;
        }
    }

    const std::string bytes = std::string(32'000'000, 'x');
};

TEST_F(PrivateFiles, AreGivenUpForASignal) {
    for (const int signal : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2, SIGALRM, SIGVTALRM, SIGPROF, SIGPIPE,
                             SIGXCPU, SIGPOLL, SIGPWR, SIGSTKFLT, SIGRTMIN, SIGRTMAX}) {
        isSignalled = 0;
        const auto action = std::signal(signal, [](int) { isSignalled = 1; });
        int writtenBefore = 0;
        while (isWrittenIn(signal) && ++writtenBefore < 100) {
            fs::remove(directory + "/a");
        }
        std::signal(signal, action);
        fs::remove(directory + "/b");
        EXPECT_LT(writtenBefore, 100) << signal;
        EXPECT_TRUE(fs::is_empty(directory)) << signal;
        EXPECT_EQ(isSignalled, 1) << signal;
    }
}

TEST_F(PrivateFiles, DoNotHeedAnIgnoredSignal) {
    const auto action = std::signal(SIGHUP, SIG_IGN);
    EXPECT_TRUE(isWrittenIn(SIGHUP));
    EXPECT_TRUE(readFile(directory + "/a") == bytes);
    fs::remove(directory + "/a");
    EXPECT_TRUE(isWrittenIn(SIGWINCH));
    std::signal(SIGHUP, action);
}

TEST(TemporaryDirectory, IsThatOfTheEnvironment) {
    for (const auto& [text, place] :
         std::vector<std::pair<const char*, std::string>>{{"", "/tmp"}, {"/a//b//", "/a//b"}, {"/", ""}}) {
        ::setenv("TMPDIR", text, 1);
        EXPECT_EQ(temporaryDirectory(), place);
    }
    ::unsetenv("TMPDIR");
    EXPECT_EQ(temporaryDirectory(), "/tmp");
}

TEST(Paths, EndInAName) {
    EXPECT_EQ(lastPathComponent("/a/b.png"), "b.png");
    EXPECT_EQ(lastPathComponent("b//"), "b");
    EXPECT_EQ(lastPathComponent("//"), "");
    EXPECT_EQ(lastPathComponent(""), "");
}

} // namespace
