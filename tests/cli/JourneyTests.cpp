// One long way through the sample library, with nothing but the tool.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SampleLibrary.h"
#include "support/ToolRunner.h"

using namespace testsupport;
using testing::HasSubstr;

namespace {

const std::string contextsRoot = "6b0d549b-6f03-475a-9600-a35a099950d8";
const std::string projects = "8d116ece-1738-47d9-bd9c-172411e20b8f";

std::string output(const std::vector<std::string>& arguments, Input input = {}) {
    ToolSetting setting;
    setting.input = std::move(input);
    const ToolResult result = runTool(arguments, setting);
    EXPECT_EQ(result.status, 0) << testing::PrintToString(arguments) << result.err;
    return result.out;
}

std::string failure(const std::vector<std::string>& arguments) {
    const ToolResult result = runTool(arguments);
    EXPECT_EQ(result.status, 1) << testing::PrintToString(arguments);
    EXPECT_EQ(result.out, "");
    return result.err;
}

/// The id that a report ends with.
std::string reportedId(const std::string& report) {
    const std::string id = report.substr(report.rfind("  ") + 2);
    return id.substr(0, id.find('\n'));
}

TEST(Journey, LeavesTheLibraryAsItBegan) {
    const SampleLibrary library;
    const std::string before = output({"find", contextsRoot, "--json", "--limit", "500"});

    const std::string folder = reportedId(output({"mkdir", "Journey", projects, "--emoji", "🧭"}));
    const std::string shelf = reportedId(output({"mkdir", "Shelf", folder}));
    const std::string created = output({"tee", "Packing list", "--folder", folder}, Input::pipe("socks\nmap\nmap\n"));
    EXPECT_THAT(created, HasSubstr("created context \"Packing list\"  "));
    const std::string context = reportedId(created);
    EXPECT_EQ(output({"cat", context}), "socks\nmap\nmap\n");
    EXPECT_EQ(output({"head", "-n", "1", context}), "socks\n");
    EXPECT_THAT(failure({"cat", folder}), HasSubstr("cat: Journey: is a directory (kind orvane_folder)"));

    EXPECT_THAT(failure({"sed", context, "--old", "tent", "--new", "x"}), HasSubstr("error: "));
    EXPECT_THAT(failure({"sed", context, "--old", "map", "--new", "x"}), HasSubstr("error: "));
    EXPECT_EQ(output({"sed", context, "--old", "map", "--new", "compass", "--all"}),
              "edited context  " + context + "  (all occurrences)\n");
    EXPECT_THAT(failure({"replace-lines", context, "--old-line", "compass", "--delete"}), HasSubstr("error: "));
    EXPECT_EQ(output({"replace-lines", context, "--old-line", "socks", "--old-line", "compass", "--new-line", "wool"}),
              "edited context  " + context + "  (replaced complete lines)\n");
    EXPECT_EQ(output({"cat", context}), "wool\ncompass\n");
    EXPECT_EQ(output({"tail", "--lines=1", context}), "compass\n");
    EXPECT_THAT(output({"grep", "-F", "compass", folder}), HasSubstr(context + "  orvane_context  me  "));

    EXPECT_EQ(output({"mv", context, "--to", shelf}), "moved context  " + context + "  → folder " + shelf + "\n");
    EXPECT_EQ(output({"mv", context, "--name", "Kit"}), "renamed context \"Kit\"  " + context + "\n");
    EXPECT_THAT(output({"stat", context}), HasSubstr("└─ Kit"));
    EXPECT_THAT(output({"ls", shelf}), HasSubstr("\tKit\n"));
    EXPECT_THAT(failure({"rmdir", shelf}), HasSubstr("error: "));
    EXPECT_EQ(output({"mv", context, "--unfiled"}), "unfiled context  " + context + "\n");
    EXPECT_EQ(output({"mv", shelf, "--unfiled"}), "moved folder  " + shelf + "  → root\n");

    EXPECT_EQ(output({"rm", context}), "deleted context  " + context + "\n");
    EXPECT_EQ(output({"rmdir", shelf}), "deleted folder  " + shelf + "\n");
    EXPECT_EQ(output({"rmdir", folder}), "deleted folder  " + folder + "\n");
    EXPECT_THAT(failure({"cat", context}), HasSubstr("error: "));
    EXPECT_EQ(output({"find", contextsRoot, "--json", "--limit", "500"}), before);
}

} // namespace
