// How much a run that asks nobody may cost. Instructions and page faults repeat from run to run where times do not, so
// that a start-up that has grown by a tenth, or by four pages, is seen on a busy machine too.
#include <cstdint>
#include <string>
#include <vector>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include "support/ToolRunner.h"

// Whether the tool is the one that is released: optimized, static and not sanitized.
#ifndef ORVANE_CLI_IS_RELEASE
#define ORVANE_CLI_IS_RELEASE 0
#endif

using namespace testsupport;

namespace {

const std::string valgrind = "/usr/bin/valgrind";

struct CountedRun {
    std::vector<std::string> arguments;
    int status;
    std::int64_t instructions;
    std::int64_t faults;
};

/// The figures of the release preset with the compiler and the C library of Debian 12. When a change is meant to alter
/// them, run `build/release/tests/orvane-tests --gtest_filter='InstructionCounts.*'` and write down what a failure
/// reports.
const std::vector<CountedRun> countedRuns{
    {{"--version"}, 0, 56'800, 43},
    {{"ls", "not-a-uuid"}, 64, 241'900, 56},
};

/// What callgrind counts in a run of the tool, which must end with `status`.
std::int64_t countedInstructions(const CountedRun& run) {
    ToolSetting setting;
    setting.binary = valgrind;
    std::vector<std::string> arguments{"--tool=callgrind", "--callgrind-out-file=/dev/null", ORVANE_CLI_BINARY};
    arguments.insert(arguments.end(), run.arguments.begin(), run.arguments.end());
    const ToolResult result = runTool(arguments, setting);
    EXPECT_EQ(result.status, run.status) << result.err;
    const std::string label = "Collected : ";
    const std::size_t found = result.err.find(label);
    EXPECT_NE(found, std::string::npos) << result.err;
    return found == std::string::npos ? 0 : std::stoll(result.err.substr(found + label.size()));
}

/// The pages that a run touches for the first time. It is spawned, for a forked one counts pages of its parent's too.
std::int64_t countedFaults(const CountedRun& run) {
    std::vector<std::string> words = run.arguments;
    std::vector<char*> arguments{const_cast<char*>(ORVANE_CLI_BINARY)};
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
        posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_WRONLY, 0);
    }
    pid_t process = 0;
    EXPECT_EQ(::posix_spawn(&process, ORVANE_CLI_BINARY, &actions, nullptr, arguments.data(), nullptr), 0);
    posix_spawn_file_actions_destroy(&actions);
    rusage usage{};
    EXPECT_EQ(::wait4(process, nullptr, 0, &usage), process);
    return usage.ru_minflt;
}

TEST(InstructionCounts, StayWithinATenthOfWhatWasRecorded) {
    if (ORVANE_CLI_IS_RELEASE == 0) {
        GTEST_SKIP() << "The figures are those of the release preset; this is another build.";
    }
    if (toolIsEmulated()) {
        GTEST_SKIP() << "The instructions that would be counted are the emulator's.";
    }
    if (access(valgrind.c_str(), X_OK) != 0) {
        GTEST_SKIP() << "There is no " << valgrind << ": install the package valgrind.";
    }
    for (const CountedRun& run : countedRuns) {
        const std::int64_t count = countedInstructions(run);
        const std::int64_t tolerance = run.instructions / 10;
        EXPECT_NEAR(static_cast<double>(count), static_cast<double>(run.instructions), static_cast<double>(tolerance))
            << "orvane-cli " << testing::PrintToString(run.arguments) << " takes " << count << " instructions, "
            << "recorded are " << run.instructions;
        EXPECT_NEAR(static_cast<double>(countedFaults(run)), static_cast<double>(run.faults), 4)
            << "page faults of orvane-cli " << testing::PrintToString(run.arguments);
    }
}

} // namespace
