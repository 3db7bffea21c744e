#include <regex>

#include <gmock/gmock.h>

#include "ArgumentParser/description/ToolInfo.h"
#include "ArgumentParser/help/HelpCommand.h"
#include "RootCommand.h"
#include "support/ToolRunner.h"
#include "unit/ParserFixture.h"

using namespace parsertest;

namespace {

enum class Level { low, high };

constexpr ClosedSet<Level, 2> closedSet(Level) {
    using enum Level;
    return {{{low, "low"}, {high, "high"}}};
}

std::string_view describe(Level level) {
    return level == Level::low ? "Near the ground." : "Up.";
}

struct Window final : ParsableArguments {
    Option<int> limit{*this, "limit", 10, "How many."};
};

struct Leaf final : ParsableCommand {
    static CommandConfiguration configuration() { return {.shouldDisplay = false, .aliases = {"l", "blade"}}; }

    Argument<FilePath> file{*this, "file", ""};
    Argument<Texts> rest{*this, "rest", {"a", "b"}, "The \"rest\".", {.parsing = ParsingStrategy::allRemainingInput}};
    Option<Level> level{*this,
                        "level",
                        ArgumentHelp("How \\ high.", {.discussion = {"Mind the gap."}, .valueName = "n"}),
                        {.names = {shortName(), longName(), customLong("lv", true)}}};
    Option<Texts> tag{*this, "tag", {}, "", {.parsing = ParsingStrategy::upToNextOption}};
    Option<MaybeText> folder{*this, "folder", "", completedBy(CompletionKind::Directory())};
    Option<MaybeText> image{*this, "image", "", completedBy(CompletionKind::File{{"png", "jpg"}})};
    Option<MaybeText> branch{*this, "branch", "", completedBy(CompletionKind::ShellCommand{"git branch"})};
    Option<MaybeText> person{*this, "person", "", completedBy(CompletionKind::CustomDeprecated())};
    Option<MaybeText> next{
        *this,
        "next",
        "",
        {.parsing = ParsingStrategy::unconditional, .completion = CompletionKind{CompletionKind::Custom()}}};
    Option<std::string> found{
        *this,
        "found",
        "x",
        "",
        {.parsing = ParsingStrategy::scanningForValue, .completion = CompletionKind{CompletionKind::CustomAsync()}}};
    OptionGroup<Window> window{*this, "window", {.title = "Window"}};
    Flag<bool> color{*this, "color", FlagInversion::prefixedNo, true, "Colours."};
    Flag<int> count{*this, "count", ArgumentHelp("", {.visibility = ArgumentVisibility::hidden})};
    Flag<bool> nameless{*this, "nameless", "", {.names = {}}};
};

struct Branch final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.abstract = "Bears leaves.",
                .discussion = "In spring.",
                .ungroupedSubcommands = {CommandType::of<Leaf>()},
                .defaultSubcommand = CommandType::of<Leaf>(),
                .helpNames = NameSpecification()};
    }
};

struct Trunk final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "trunk",
                ._superCommandName = "wood",
                .version = "1",
                .groupedSubcommands = {{"Boughs", {CommandType::of<Branch>()}}}};
    }
    Option<MaybeText> ring{*this, "ring", ""};
};

/// What asks for it prints.
ToolInfoV0 described(std::string_view line) {
    return decodedToolInfo(outcome<Trunk>(line));
}

std::string compact(const ToolInfoV0& info) {
    return std::regex_replace(std::regex_replace(encoded(info), std::regex("\n *"), ""), std::regex("\": "), "\":");
}

TEST(ToolInfo, OfEachKindOfInput) {
    const Texts arguments{
        R"("completionKind":{"file":{}},"isOptional":false,"isRepeating":false,"kind":"positional","parsingStrategy":"default","shouldDisplay":true,"valueName":"file")",
        R"("abstract":"The \"rest\".","defaultValue":"a, b","isOptional":true,"isRepeating":true,"kind":"positional","parsingStrategy":"allRemainingInput","shouldDisplay":true,"valueName":"rest")",
        R"("abstract":"How \\ high.","allValueDescriptions":{"high":"Up.","low":"Near the ground."},"allValues":["low","high"],"completionKind":{"list":{"values":["low","high"]}},"discussion":"Mind the gap.","isOptional":false,"isRepeating":false,"kind":"option","names":[{"kind":"short","name":"l"},{"kind":"long","name":"level"},{"kind":"longWithSingleDash","name":"lv"}],"parsingStrategy":"default","preferredName":{"kind":"long","name":"level"},"shouldDisplay":true,"valueName":"n")",
        R"("isOptional":true,"isRepeating":true,"kind":"option","names":[{"kind":"long","name":"tag"}],"parsingStrategy":"upToNextOption","preferredName":{"kind":"long","name":"tag"},"shouldDisplay":true,"valueName":"tag")",
        R"("completionKind":{"directory":{}},"isOptional":true,"isRepeating":false,"kind":"option","names":[{"kind":"long","name":"folder"}],"parsingStrategy":"default","preferredName":{"kind":"long","name":"folder"},"shouldDisplay":true,"valueName":"folder")",
        R"("completionKind":{"file":{"extensions":["png","jpg"]}},"isOptional":true,"isRepeating":false,"kind":"option","names":[{"kind":"long","name":"image"}],"parsingStrategy":"default","preferredName":{"kind":"long","name":"image"},"shouldDisplay":true,"valueName":"image")",
        R"("completionKind":{"shellCommand":{"command":"git branch"}},"isOptional":true,"isRepeating":false,"kind":"option","names":[{"kind":"long","name":"branch"}],"parsingStrategy":"default","preferredName":{"kind":"long","name":"branch"},"shouldDisplay":true,"valueName":"branch")",
        R"("completionKind":{"customDeprecated":{}},"isOptional":true,"isRepeating":false,"kind":"option","names":[{"kind":"long","name":"person"}],"parsingStrategy":"default","preferredName":{"kind":"long","name":"person"},"shouldDisplay":true,"valueName":"person")",
        R"("completionKind":{"custom":{}},"isOptional":true,"isRepeating":false,"kind":"option","names":[{"kind":"long","name":"next"}],"parsingStrategy":"unconditional","preferredName":{"kind":"long","name":"next"},"shouldDisplay":true,"valueName":"next")",
        R"("completionKind":{"customAsync":{}},"defaultValue":"x","isOptional":true,"isRepeating":false,"kind":"option","names":[{"kind":"long","name":"found"}],"parsingStrategy":"scanningForValue","preferredName":{"kind":"long","name":"found"},"shouldDisplay":true,"valueName":"found")",
        R"("abstract":"How many.","defaultValue":"10","isOptional":true,"isRepeating":false,"kind":"option","names":[{"kind":"long","name":"limit"}],"parsingStrategy":"default","preferredName":{"kind":"long","name":"limit"},"sectionTitle":"Window","shouldDisplay":true,"valueName":"limit")",
        R"("abstract":"Colours.","defaultValue":"true","isOptional":true,"isRepeating":false,"kind":"flag","names":[{"kind":"long","name":"color"}],"parsingStrategy":"default","preferredName":{"kind":"long","name":"color"},"shouldDisplay":true,"valueName":"color")",
        R"("abstract":"Colours.","defaultValue":"true","isOptional":true,"isRepeating":false,"kind":"flag","names":[{"kind":"long","name":"no-color"}],"parsingStrategy":"default","preferredName":{"kind":"long","name":"no-color"},"shouldDisplay":true,"valueName":"no-color")",
        R"("isOptional":true,"isRepeating":true,"kind":"flag","names":[{"kind":"long","name":"count"}],"parsingStrategy":"default","preferredName":{"kind":"long","name":"count"},"shouldDisplay":false,"valueName":"count")",
        R"("abstract":"Show the version.","isOptional":true,"isRepeating":false,"kind":"flag","names":[{"kind":"long","name":"version"}],"parsingStrategy":"default","preferredName":{"kind":"long","name":"version"},"shouldDisplay":true,"valueName":"version")",
    };
    EXPECT_EQ(compact(described("branch leaf --experimental-dump-help")),
              R"({"command":{"aliases":["l","blade"],"arguments":[{)" + platform::joined(arguments, "},{") +
                  R"(}],"commandName":"leaf","shouldDisplay":false,"superCommands":["wood","trunk","branch"]},)"
                  R"("serializationVersion":0})");
}

TEST(ToolInfo, OfAGroupHoldsEverythingBelowIt) {
    const CommandInfoV0 root = described("--experimental-dump-help").command;
    ASSERT_EQ(root.subcommands.size(), 2U);
    const CommandInfoV0& branch = root.subcommands.front();
    EXPECT_EQ(root.superCommands, Texts{"wood"});
    EXPECT_EQ(root.subcommands.back().commandName, "help");
    EXPECT_EQ(branch.commandName + "|" + branch.abstract + "|" + branch.discussion + "|" + branch.defaultSubcommand,
              "branch|Bears leaves.|In spring.|leaf");
    EXPECT_EQ(branch, described("branch --experimental-dump-help").command);
    EXPECT_EQ(branch.subcommands, std::vector{described("branch leaf --experimental-dump-help").command});

    // The help flag is the root's, and so is the one that shows what is hidden.
    ASSERT_EQ(root.arguments.size(), 4U);
    EXPECT_EQ(root.arguments[2].names, (std::vector<NameInfoV0>{{"short", "h"}, {"long", "help"}}));
    EXPECT_EQ(root.arguments[3].names, (std::vector<NameInfoV0>{{"long", "help-hidden"}}));
    EXPECT_FALSE(root.arguments[3].shouldDisplay);
}

struct Lists final : Tool {
    Argument<Texts> behind{*this, "behind", {}, "", {.parsing = ParsingStrategy::postTerminator}};
    Argument<Texts> unknown{*this, "unknown", {}, "", {.parsing = ParsingStrategy::allUnrecognized}};
};

struct Asking final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "asking", .ungroupedSubcommands = {CommandType::of<Leaf>()}};
    }
    Flag<bool> below{*this, "below", ""};
    void run() const override {
        throw below ? CleanExit::dumpRequest(CommandType::of<Leaf>()) : CleanExit::dumpRequest();
    }
};

TEST(ToolInfo, OfListsThatTakeWhatOthersLeave) {
    const std::vector<ArgumentInfoV0> lists =
        decodedToolInfo(outcome<Lists>("--experimental-dump-help")).command.arguments;
    EXPECT_EQ(lists.at(0).parsingStrategy, "postTerminator");
    EXPECT_EQ(lists.at(1).parsingStrategy, "allUnrecognized");
}

TEST(ToolInfo, IsWhatACommandMayAskFor) {
    EXPECT_EQ(decodedToolInfo(outcome<Asking>("")).command.commandName, "asking");
    EXPECT_EQ(decodedToolInfo(outcome<Asking>("--below")).command.commandName, "leaf");
}

TEST(ToolInfo, IsAskedForAheadOfOtherFaultsButBehindHelp) {
    EXPECT_EQ(described("--nonsense --version --experimental-dump-help").command.commandName, "trunk");
    EXPECT_TRUE(outcome<Trunk>("--experimental-dump-help --help").starts_with("USAGE: "));
    EXPECT_EQ(outcome<Trunk>("--ring --experimental-dump-help").substr(0, 9), "64|Error:");
}

TEST(ToolInfo, ReadsOnlyWhatItWrites) {
    EXPECT_EQ(decodedToolInfoHeader(R"({"serializationVersion":3,"other":1})").serializationVersion, 3);
    const std::string argument = R"("isOptional":true,"isRepeating":false,"kind":"flag","parsingStrategy":"default",)"
                                 R"("shouldDisplay":true)";
    const auto withArgument = [](const std::string& members) {
        return R"({"serializationVersion":0,"command":{"commandName":"a","shouldDisplay":true,"arguments":[{)" +
               members + "}]}}";
    };
    const std::pair<std::string, std::string> cases[]{
        {"[]", "The description is not a JSON object."},
        {"{}", R"(The key "serializationVersion" is missing, or its value is of another type.)"},
        {R"({"serializationVersion":4294967296})",
         R"(The key "serializationVersion" is missing, or its value is of another type.)"},
        {R"({"serializationVersion":0})", R"(The key "command" is missing, or its value is of another type.)"},
        {withArgument(argument + R"(,"names":[1])"), R"(The key "names" is missing, or its value is of another type.)"},
        {withArgument(argument + R"(,"valueName":null)"),
         R"(The key "valueName" is missing, or its value is of another type.)"},
        {withArgument(argument + R"(,"completionKind":{})"), "Invalid number of keys found, expected one."},
        {withArgument(argument + R"(,"completionKind":{"file":{"extensions":[]},"custom":{}})"),
         "Invalid number of keys found, expected one."},
    };
    for (const auto& [json, message] : cases) {
        EXPECT_THAT([&text = json] { decodedToolInfo(text); }, testing::ThrowsMessage<std::runtime_error>(message))
            << json;
    }
    EXPECT_EQ(decodedToolInfo(withArgument(argument)).command.arguments.size(), 1U);
}

TEST(ToolInfo, OfTheToolIsWhatItsCommandsDeclare) {
    setenv("TZ", "UTC", 1); // A default tells it.
    const ToolInfoV0 declared = toolInfo(Tree(orvane::rootCommand(), CommandType::of<HelpCommand>()));
    EXPECT_EQ(testsupport::runTool({"--experimental-dump-help"}).out, encoded(declared) + "\n");
    EXPECT_EQ(decodedToolInfo(encoded(declared)).command, declared.command);
}

} // namespace
