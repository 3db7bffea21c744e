#include <csignal>
#include <system_error>

#include "platform/Files.h"
#include "platform/PrivateFiles.h"
#include "support/TemporaryFiles.h"

using namespace platform;

namespace {

class PrivateFiles : public testsupport::TemporaryFiles {};

TEST_F(PrivateFiles, AreGivenUpForASignal) {
    sigset_t mask;
    sigemptyset(&mask);
    sigaddset(&mask, SIGTERM);
    sigset_t before;
    ::pthread_sigmask(SIG_BLOCK, &mask, &before);
    std::raise(SIGTERM);
    EXPECT_THROW(writePrivateFile({directory, "a"}, ""), std::system_error);
    EXPECT_TRUE(std::filesystem::is_empty(directory));
    int taken = 0;
    ::sigwait(&mask, &taken);
    writePrivateFile({directory, "a"}, "x");
    EXPECT_EQ(readFile(directory + "/a"), "x");
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(PrivateFiles, DoNotHeedAnIgnoredSignal) {
    sigset_t mask;
    sigemptyset(&mask);
    sigaddset(&mask, SIGHUP);
    sigset_t before;
    ::pthread_sigmask(SIG_BLOCK, &mask, &before);
    const auto action = std::signal(SIGHUP, SIG_IGN);
    std::raise(SIGHUP);
    writePrivateFile({directory, "a"}, "x");
    EXPECT_EQ(readFile(directory + "/a"), "x");
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    std::signal(SIGHUP, action);
}

TEST(Paths, EndInAName) {
    EXPECT_EQ(lastPathComponent("/a/b.png"), "b.png");
    EXPECT_EQ(lastPathComponent("b//"), "b");
    EXPECT_EQ(lastPathComponent("//"), "");
    EXPECT_EQ(lastPathComponent(""), "");
}

} // namespace
