// Ways through the sample library, with nothing but the tool.
#include <array>
#include <chrono>
#include <ctime>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SampleLibrary.h"
#include "support/ToolRunner.h"

using namespace testsupport;
using testing::ContainsRegex;
using testing::HasSubstr;

namespace {

const std::string contextsRoot = "6b0d549b-6f03-475a-9600-a35a099950d8";
const std::string projects = "8d116ece-1738-47d9-bd9c-172411e20b8f";
const std::string codex = "4cdd2055-930d-4eaf-94f4-733f3e7d1bfb";
const std::string transcript = "57ee05cd-e009-42c7-bebf-f20686734721"; // its messages: two of the user, two answers

std::string output(const std::vector<std::string>& arguments, Input input = {}, const std::string& zone = "UTC") {
    ToolSetting setting;
    setting.input = std::move(input);
    setting.environment["TZ"] = zone;
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

std::string instant(std::chrono::minutes fromNow) {
    const std::time_t time = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now() + fromNow);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&time));
    return text.data();
}

TEST(Journey, SeesRecentTimesInTheZoneOfTheMachine) {
    const std::string zone = "NPT-5:45";
    const SampleLibrary library(zone);
    const auto shown = [&](const std::vector<std::string>& arguments) { return output(arguments, {}, zone); };

    const std::string stat = shown({"stat", transcript});
    const std::size_t updated = stat.find("updated    ");
    ASSERT_NE(updated, std::string::npos) << stat;
    const std::string time = stat.substr(updated + 11, 12);
    EXPECT_THAT(shown({"find", codex, "--name", "price rounding"}), HasSubstr(time + "\t" + transcript));
    EXPECT_THAT(shown({"grep", "-F", "three decimals"}), HasSubstr(transcript + "  codex_chat  me  " + time + "  "));
    EXPECT_THAT(shown({"check-in", "--hook", "--recent-limit", "1"}), ContainsRegex(" [AP]M NPT id: "));

    EXPECT_THAT(shown({"find", codex, "--since", instant(std::chrono::minutes(-15))}), HasSubstr("codex_chat"));
    EXPECT_THAT(shown({"find", codex, "--since", instant(std::chrono::minutes(1))}),
                testing::Not(HasSubstr("codex_chat")));
}

TEST(Journey, ReadsTheWindowThatIsAskedFor) {
    const SampleLibrary library;
    const std::string note = reportedId(output({"tee", "Three parts"}, Input::pipe("a\nb\n\nc\n\nd\n")));
    EXPECT_EQ(output({"cat", note}), "a\nb\n\nc\n\nd\n");
    EXPECT_EQ(output({"head", "-n", "2", note}), "a\nb\n");
    EXPECT_EQ(output({"head", "-n", "3", note}), "a\nb\n\n");
    EXPECT_EQ(output({"tail", "-n", "2", note}), "\nd\n");
    EXPECT_EQ(output({"tail", "-n", "99", note}), "a\nb\n\nc\n\nd\n");

    const struct {
        std::vector<std::string> arguments;
        std::string read;
    } windows[] = {
        {{"node", "get", note}, R"({"content":"a\nb\n\nc\n\nd\n","total":3})"},
        {{"node", "get", note, "--head-limit", "1", "--tail-limit", "1"},
         R"({"head":{"content":"a\nb"},"tail":{"content":"d\n"},"total":3})"},
        {{"node", "get", note, "--offset", "1", "--limit", "1"}, R"({"content":"c","total":3})"},
        {{"source", "get", note, "--tail-limit", "2"}, R"({"tail":{"content":"c\n\nd\n"},"total":3})"},
        {{"source", "get", note, "--limit", "2"}, R"({"content":"a\nb\n\nc","total":3})"},
        {{"context", "get", note, "--offset", "2"}, R"({"content":"d\n","total":3})"},
        {{"context", "get", note, "--offset", "9"}, R"({"content":"","total":3})"},
        {{"transcript", "get", transcript, "--offset", "3"},
         R"({"content":"Assistant: It did not; now it does. All 48 tests pass.","total":4})"},
    };
    for (const auto& [arguments, read] : windows) {
        EXPECT_THAT(output(arguments), HasSubstr("\"read\":" + read)) << testing::PrintToString(arguments);
    }
    EXPECT_THAT(failure({"context", "get", transcript}), HasSubstr("is of kind codex_chat"));
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
    EXPECT_EQ(output({"sed", context, "--old", "map", "--new", "maps"}), "edited context  " + context + "\n");
    EXPECT_EQ(output({"cat", context}), "socks\nmaps\nmap\n");
    output({"context", "edit", context, "--old-string", "maps", "--new-string", "map"});
    EXPECT_EQ(output({"sed", context, "--old", "map", "--new", "compass", "--all"}),
              "edited context  " + context + "  (all occurrences)\n");
    EXPECT_THAT(failure({"replace-lines", context, "--old-line", "compass", "--delete"}), HasSubstr("error: "));
    EXPECT_EQ(output({"replace-lines", context, "--old-line", "socks", "--old-line", "compass", "--new-line", "wool"}),
              "edited context  " + context + "  (replaced complete lines)\n");
    EXPECT_EQ(output({"cat", context}), "wool\ncompass\n");
    EXPECT_EQ(output({"tail", "--lines=1", context}), "compass\n");
    const std::string found = output({"grep", "-F", "compass", folder});
    EXPECT_THAT(found, HasSubstr(context + "  orvane_context  me  "));
    EXPECT_THAT(found, ContainsRegex("sliceId: [0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12} "));

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
