// Ways through the sample library, with nothing but the tool.
#include <array>
#include <chrono>
#include <ctime>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SampleLibrary.h"
#include "support/TemporaryFiles.h"
#include "support/ToolRunner.h"

using namespace testsupport;
using testing::AllOf;
using testing::ContainsRegex;
using testing::HasSubstr;

namespace {

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

/// The id that a record begins with.
std::string answeredId(const std::string& record) {
    return record.substr(std::string(R"({"id":")").size(), 36);
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

class AssetJourney : public TemporaryFiles {};

TEST_F(AssetJourney, ComesBackAsItWent) {
    const SampleLibrary library;
    std::string image = "GIF8";
    for (int byte = 0; byte < 256; ++byte) {
        image += static_cast<char>(byte);
    }
    const std::string shotList = "0fd630f1-f29d-4da9-953f-48f1a09f76b5";
    const std::string block = output({"asset", "upload", shotList, file("tin.gif", image)});
    EXPECT_THAT(block, testing::StartsWith("![tin.gif](https://assets.orvane.app/v1/"));
    const std::string url = block.substr(block.find("https"), block.rfind(')') - block.find("https"));
    ToolSetting setting;
    setting.environment["TMPDIR"] = directory;
    const std::string path = runTool({"asset", "get", url}, setting).out;
    ASSERT_THAT(path, testing::EndsWith(".gif\n"));
    std::ifstream downloaded(path.substr(0, path.size() - 1), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(downloaded), {}), image);
    EXPECT_THAT(failure({"asset", "upload", transcript, file("tin.gif", image)}), HasSubstr("is of kind codex_chat"));
    EXPECT_THAT(failure({"asset", "get", shotList}), HasSubstr("No asset"));
}

TEST(Journey, KeepsSkills) {
    const SampleLibrary library;
    const std::string notes = "53a721e0-9582-4590-9d74-374d6c481bc8";
    const auto ask = [](std::vector<std::string> arguments, Input input = {}) {
        arguments.insert(arguments.begin(), "skill");
        return output(arguments, std::move(input));
    };
    const auto refusal = [](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "skill");
        return failure(arguments);
    };
    const std::string before = ask({"ls"});
    const std::string bundle = answeredId(ask({"bundle", "create", "Kitchen"}));
    const std::string body = "Rest crème brule\u0301e\nat 4°.";
    const std::string skill = answeredId(ask({"create", "brew", "--parent", bundle, "--content", body}));
    EXPECT_THAT(ask({"stat", skill}), AllOf(HasSubstr(R"("revision":"1")"), HasSubstr(R"("parentId":")" + bundle)));
    EXPECT_EQ(ask({"file", "cat", skill}),
              "---\nname: brew\ndescription: Rest crème brule\u0301e at\n---\n\n" + body + "\n");

    EXPECT_THAT(ask({"file", "tee", skill, "notes/times.md"}, Input::pipe("two\ntwo\n")),
                ContainsRegex("^wrote notes/times.md — package [0-9a-f]{12}, valid\n$"));
    EXPECT_THAT(refusal({"file", "sed", skill, "notes/times.md", "--old", "two", "--new", "3"}),
                HasSubstr("than once"));
    ask({"file", "sed", skill, "notes/times.md", "--old", "two", "--new", "3", "--all"});
    EXPECT_THAT(refusal({"file", "mkdir", skill, "./notes//times.md/x"}), HasSubstr("notes/times.md is a file"));
    EXPECT_THAT(refusal({"file", "mv", skill, "notes", "--to", "notes/old"}), HasSubstr("into itself"));
    EXPECT_THAT(refusal({"file", "mv", skill, "notes/times.md", "--to", "SKILL.md"}), HasSubstr("protected"));
    ask({"file", "mv", skill, "notes", "--to", "data"});
    EXPECT_EQ(ask({"file", "cat", skill, "data/times.md"}), "3\n3\n");
    EXPECT_THAT(refusal({"file", "rm", skill, "data"}), HasSubstr("is a directory"));
    ask({"file", "rm", skill, "data", "-r"});
    ask({"file", "sed", skill, "SKILL.md", "--old", "name: ", "--new", ""});
    EXPECT_EQ(runTool({"skill", "validate", skill}).status, 1);
    EXPECT_THAT(refusal({"install", skill}), HasSubstr("invalid"));
    ask({"file", "sed", skill, "SKILL.md", "--old", "\nbrew", "--new", "\nname: brew"});

    EXPECT_EQ(ask({"install", skill, "--agent", "codex"}), "installed skill brew → codex\n");
    EXPECT_THAT(ask({"installed"}), HasSubstr(R"({"name":"brew","agent":"codex","source":"direct"})"));
    EXPECT_EQ(ask({"uninstall", skill}), "uninstalled skill brew → codex\n");
    EXPECT_THAT(ask({"install", notes, "--agent", "claude"}, Input::terminal("y\n")),
                HasSubstr("[y/N] installed skill release-notes → claude\n"));

    EXPECT_THAT(refusal({"suggestion", "apply", "update-90be37c15d2486fa"}), HasSubstr("stale_suggestion"));
    EXPECT_THAT(ask({"suggestion", "apply", "update-4f1c09d27ab3e586"}), HasSubstr("appliedTo"));
    ask({"feedback", "tasting-notes", "Too sweet."});
    EXPECT_THAT(ask({"analytics", "tasting-notes"}), HasSubstr("Too sweet."));
    EXPECT_THAT(ask({"analytics", "tasting-notes", "--recent-limit", "2"}), HasSubstr(R"("nextCursor":"2")"));
    EXPECT_THAT(ask({"analytics", "tasting-notes", "--recent-limit", "2", "--recent-cursor", "2"}),
                AllOf(HasSubstr("codex_chat"), testing::Not(HasSubstr("nextCursor"))));
    EXPECT_THAT(ask({"analytics", "--team", "36f675cc-81e7-4ef5-a8e2-5d940ed90475"}), HasSubstr("Tomas Lindqvist"));

    EXPECT_THAT(refusal({"remove", bundle, "--force"}), HasSubstr("in use"));
    EXPECT_THAT(refusal({"remove", skill, "--force", "--if-revision", "1"}), HasSubstr("its revision is "));
    ask({"remove", skill, "--force"});
    ask({"remove", bundle}, Input::terminal("yes\n"));
    EXPECT_EQ(ask({"ls"}), before);
}

} // namespace
