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

TEST(Journey, ListsWhatEachGroupHolds) {
    const SampleLibrary library;
    const std::string note = answeredId(output({"context", "create", "--title", "Kettle", "--folder", projects}));
    const struct {
        std::vector<std::string> arguments;
        std::string listed;
        std::string left;
    } lists[] = {
        {{"context", "list", "--limit", "1"}, R"("folderId":")" + projects, R"("name":"Working agreements")"},
        {{"folder", "list"}, R"("id":")" + projects, note},
        {{"folder", "get", projects}, R"("contexts":[{"id":")" + note, transcript},
        {{"source", "list", "--source-type", "transcript"}, codex, contextsRoot},
        {{"source", "list", "--parent-id", codex}, transcript, note},
        {{"transcript", "list", "--type", "codex"}, transcript, "claude_code_chat"},
        {{"integration", "list", "--platform", "codex", "--status", "active"}, codex, "team_remote"},
        {{"team", "list"}, R"("members":[{"id")", note},
    };
    for (const auto& [arguments, listed, left] : lists) {
        EXPECT_THAT(output(arguments), AllOf(HasSubstr(listed), testing::Not(HasSubstr(left))))
            << testing::PrintToString(arguments);
    }
    EXPECT_THAT(failure({"folder", "get", note}), HasSubstr("is of kind orvane_context"));
    EXPECT_THAT(failure({"integration", "list", "--team-id", "none"}), HasSubstr("No team"));
}

TEST(Journey, KeepsTheProfile) {
    const SampleLibrary library;
    EXPECT_EQ(output({"profile", "get", "--section", "phone"}), R"({"section":"phone","value":null})"
                                                                "\n");
    output({"profile", "edit-field", "--field", "phone", "--value", "555 0100"});
    EXPECT_EQ(output({"profile", "get", "--section", "phone"}), R"({"section":"phone","value":"555 0100"})"
                                                                "\n");
    EXPECT_THAT(failure({"profile", "edit-field", "--field", "projects", "--value", "x"}), HasSubstr("must be one of"));

    const std::string before = output({"profile", "get", "--section", "projects"});
    EXPECT_THAT(output({"profile", "add-card", "--section", "projects", "--fields", R"({"name":"Shelf"})"}),
                HasSubstr("\"index\":1"));
    EXPECT_THAT(
        output({"profile", "update-card", "--section", "projects", "--index", "1", "--updates", R"({"d":"x"})"}),
        HasSubstr(R"({"name":"Shelf","d":"x"})"));
    EXPECT_THAT(failure({"profile", "remove-card", "--section", "projects", "--index", "2"}), HasSubstr("2 cards"));
    output({"profile", "remove-card", "--section", "projects", "--index", "1"});
    EXPECT_EQ(output({"profile", "get", "--section", "projects"}), before);
}

TEST(Journey, SharesANodeAndTakesItBack) {
    const SampleLibrary library;
    const std::string folder = "a170b338-3926-4059-b28c-105d1fb17c23";
    const std::string team = "9531985d-5d9d-49f8-9818-e811892f902b";
    const std::string teammate = "d23f0824-128b-4f33-8c5c-7fd0a6a3a450";
    const std::string before = output({"sharing", "get", folder});
    EXPECT_THAT(before, HasSubstr("\"grants\":[]"));
    output({"sharing", "add", folder, "--team", team});
    output({"sharing", "add", folder, "--team", team, "--access", "editor"});
    EXPECT_THAT(output({"team"}), HasSubstr(R"("name":"Photography")"));
    output({"sharing", "add", folder, "--team", team, "--audience", "user", "--user", teammate});
    output({"sharing", "add", folder, "--audience", "user", "--email", "tomas.lindqvist@example.com"});
    EXPECT_THAT(output({"sharing", "remove", folder, "--team", team, "--team-acl-only"}),
                AllOf(HasSubstr("memberOf"), testing::Not(HasSubstr("editor"))));
    EXPECT_THAT(output({"sharing", "remove", folder, "--team", team}),
                AllOf(HasSubstr("Tomas"), testing::Not(HasSubstr("memberOf"))));
    EXPECT_EQ(output({"sharing", "remove", folder, "--user", teammate}), before);
    EXPECT_THAT(failure({"sharing", "remove", folder, "--user", teammate}), HasSubstr("no such"));
    EXPECT_THAT(failure({"sharing", "add", folder, "--team", team, "--scope", "repos", "--repo", "r"}),
                HasSubstr("in part"));
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

TEST(Journey, CorrectsASliceAndReportsIt) {
    const SampleLibrary library;
    const auto search = [] { return output({"grep", "-F", "three decimals"}); };
    const std::string before = search();
    const std::size_t start = before.find("sliceId: ") + 9;
    ASSERT_NE(start, std::string::npos + 9) << before;
    const std::string slice = before.substr(start, 36);
    output({"modality", slice, "stale"});
    EXPECT_THAT(search(), HasSubstr("stale"));
    output({"modality", slice, "clear"});
    EXPECT_EQ(search(), before);
    EXPECT_THAT(failure({"modality", transcript, "stale"}), HasSubstr("No slice"));
    EXPECT_EQ(output({"feedback", "--category", "general"}, Input::pipe("It works.\n")), "Feedback submitted.\n");
    EXPECT_THAT(output({"analytics", "--granularity", "month"}),
                ContainsRegex(R"("trend":\[.*"period":"[0-9]{4}-[0-9]{2}")"));
}

TEST(Journey, BuildsAnOntologyAndTakesItDown) {
    const SampleLibrary library;
    const auto ask = [](std::vector<std::string> arguments, const std::string& draft = "") {
        arguments.insert(arguments.begin(), "ontology");
        return output(arguments, draft.empty() ? Input{} : Input::pipe(draft));
    };
    const auto refusal = [](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), "ontology");
        return failure(arguments);
    };
    const std::string before = ask({"spaces"});
    const std::string space = answeredId(ask({"space", "create", "Cellar", "--emoji", "x"}));
    EXPECT_THAT(ask({"space", "update", space, "--clear-emoji"}), testing::Not(HasSubstr("emoji")));

    const std::string colour = answeredId(ask({"enum", "create", space, "Colour"}));
    const std::string late = answeredId(ask({"enum-case", "create", colour, "Red", "--sort-index", "1"}));
    const std::string early = answeredId(ask({"enum-case", "create", colour, "Blue"}));
    EXPECT_THAT(ask({"enum-cases", colour}), ContainsRegex(early + ".*" + late));

    const std::string type = answeredId(ask({"type", "create", space, "Box"}));
    const std::string field = answeredId(
        ask({"field", "create", "--type-id", type, "--from-file", "-"},
            R"({"name":"Colour","maxCount":1,"definition":{"kind":"enum","enumTypeId":")" + colour + R"("}})"));
    const std::string heir = answeredId(ask({"type", "create", space, "Crate", "--inherits-from-type-id", type}));
    EXPECT_THAT(ask({"fields", heir}), HasSubstr(field));

    const std::string object = answeredId(ask({"object", "create", space, heir}));
    const std::string second = answeredId(ask({"object", "create", space, type}));
    const std::string page = ask({"objects", "--space-id", space, "--limit", "1"});
    EXPECT_THAT(page, AllOf(HasSubstr(object), testing::Not(HasSubstr(second)), HasSubstr("nextPageToken")));
    EXPECT_THAT(ask({"objects", "--space-id", space, "--page-token", "1"}),
                AllOf(HasSubstr(second), testing::Not(HasSubstr(object))));

    const auto draft = [&](const std::string& value) {
        return R"({"fieldId":")" + field + R"(","value":")" + value + R"("})";
    };
    const std::string old =
        answeredId(ask({"assertion", "create", "--object-id", object, "--from-file", "-"}, draft(late)));
    const std::string corrected = answeredId(ask({"assertion", "update", old, "--from-file", "-"}, draft(early)));
    EXPECT_THAT(ask({"assertions", object}),
                AllOf(HasSubstr(R"("id":")" + corrected), testing::Not(HasSubstr(R"("id":")" + old))));
    EXPECT_THAT(ask({"assertion", "add-support", corrected, transcript}), HasSubstr(transcript));
    EXPECT_THAT(ask({"assertion", "remove-support", corrected, transcript}), testing::Not(HasSubstr(transcript)));

    const std::vector<std::string> takenDown[] = {
        {"assertion", corrected}, {"assertion", old}, {"object", object},   {"object", second},  {"type", heir},
        {"field", field},         {"type", type},     {"enum-case", early}, {"enum-case", late}, {"enum", colour}};
    EXPECT_THAT(refusal({"object", "delete", object}), HasSubstr("in use"));
    EXPECT_THAT(refusal({"type", "delete", type}), HasSubstr("in use"));
    for (const auto& each : takenDown) {
        EXPECT_THAT(refusal({"space", "delete", space}), HasSubstr("in use"));
        ask({each.front(), "delete", each.back()});
    }
    EXPECT_EQ(ask({"space", "delete", space}), "Deleted space " + space + "\n");
    EXPECT_EQ(ask({"spaces"}), before);
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
