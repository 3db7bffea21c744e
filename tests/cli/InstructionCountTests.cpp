// How much a run that asks nobody may cost. Instructions and page faults repeat from run to run where times do not, so
// that a start-up that has grown by a tenth, or by four pages, is seen on a busy machine too.
#include <cstdint>
#include <string>
#include <vector>

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
    long faults;
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
        EXPECT_NEAR(static_cast<double>(runTool(run.arguments).pageFaults), static_cast<double>(run.faults), 4)
            << "page faults of orvane-cli " << testing::PrintToString(run.arguments);
    }
}

} // namespace
