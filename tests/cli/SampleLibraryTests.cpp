// What the sample library tells of the wire, and how badly it plays the application when asked to.
#include <regex>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CommandRow.h"
#include "support/SampleLibrary.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;
using testing::EndsWith;
using testing::HasSubstr;

namespace {

class SampleLibraryLog : public TemporaryFiles {
protected:
    /// What a log has come to, with every time as T.
    std::string log(const std::string& name) const {
        static const std::regex time(R"re(\d+ ms|"time":"[-0-9]{10}T[:0-9]{8}Z"|"milliseconds":\d+)re");
        std::ifstream file(directory + "/" + name);
        return std::regex_replace(std::string(std::istreambuf_iterator<char>(file), {}), time, "T");
    }
    const std::vector<std::string> options{"--log", "--log=" + directory + "/lines"};
};

/// The status, and all that was written.
std::string run(const std::vector<std::string>& words, const ToolSetting& setting = {}) {
    const ToolResult result = runTool(words, setting);
    return std::to_string(result.status) + " " + result.out + result.err;
}

TEST_F(SampleLibraryLog, ShowsTheWire) {
    const SampleLibrary library(options, directory + "/blocks");
    run({"feedback", "a\x7F\u202E\"é\n"});
    const std::string sent = R"({"category":"bug","message":"a\u007f\u202e\"é\n"})";
    EXPECT_EQ(log("blocks"), "> POST /api/feedback\n" + sent + "\n< 200 · 18 bytes · T\n{\"category\":\"bug\"}\n\n");
    EXPECT_EQ(log("lines"), R"({T,"method":"POST","target":"/api/feedback","body":"{\"category\":\"bug\",)"
                            R"(\"message\":\"a\u007f\u202e\\\"é\\n\"}","status":200,"size":18,T,"answer":)"
                            "\"{\\\"category\\\":\\\"bug\\\"}\"}\n");
    const std::string text(3000, 'x');
    run({"feedback", text});
    EXPECT_THAT(log("blocks"), HasSubstr("\"" + text.substr(0, 1571) + " … 3,031 bytes in all\n< 200"));
    EXPECT_THAT(log("lines"), HasSubstr("\"" + text + "\\\"}\",\"status\""));
    run({"asset", "get", "ed77d038-d65f-4284-bfc4-fe9d8962adcf"}, {.environment = {{"TMPDIR", directory}}});
    EXPECT_THAT(log("blocks"), HasSubstr("< 200 · 74 bytes · T\n\uFFFDPNG\\u000d\\u000a"));
    EXPECT_THAT(log("lines"), HasSubstr("\"body\":null,\"status\":200,\"size\":74,T,\"answer\":\"\uFFFDPNG\\r\\n"));
}

TEST_F(SampleLibraryLog, TellsOfFaults) {
    const auto playing = [&](const Words& fault, const std::string& outcome) {
        const SampleLibrary library(with(fault, {options[0], options[1]}), directory + "/blocks");
        EXPECT_EQ(run({"feedback", "x"}), outcome);
    };
    playing("--fail=400", "1 error: The sample library refuses every request.\n");
    EXPECT_THAT(log("blocks"), HasSubstr("\n< 400 · 55 bytes · T\n{\"message\":\"The sample library refuses every "));
    playing("--fail 599", "1 error: The sample library refuses every request.\n");
    playing("--close", "1 Error: The connection to Orvane was interrupted. Please try again.\n");
    EXPECT_THAT(log("blocks"), EndsWith("\"message\":\"x\"}\n< closed without an answer · T\n\n"));
    EXPECT_THAT(log("lines"), testing::AllOf(HasSubstr("\"status\":400,"), EndsWith("null,T,\"answer\":null}\n")));
    const auto start = std::chrono::steady_clock::now();
    playing("--delay=300", "0 Feedback submitted.\n");
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(300));
}

TEST(SampleLibrary, RefusesWrongOptions) {
    const ToolSetting sample{.binary = SAMPLE_LIBRARY_BINARY};
    const auto refuses = [&](const std::string& words, const std::string& message) {
        EXPECT_EQ(run(with({SAMPLE_LIBRARY_DATA}, words), sample),
                  "64 sample-library: " + message + "\nSee 'sample-library --help'.\n");
    };
    for (const std::string wrong : {"--fail 399", "--fail=600", "--fail=500x", "--close --fail"}) {
        refuses(wrong, "--fail takes a whole number from 400 to 599.");
    }
    refuses("--close --fail 500", "--fail and --close exclude each other.");
    refuses("--close=1", "There is no option --close=1.");
    refuses("--log=", "--log= takes the name of a file.");
    EXPECT_EQ(run({SAMPLE_LIBRARY_DATA, "--log=/dev/null/x"}, sample),
              "1 sample-library: /dev/null/x cannot be written: Not a directory.\n");
}

} // namespace
