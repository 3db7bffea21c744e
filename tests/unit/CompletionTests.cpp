// Completion of commands declared here, with everything that the tool's own don't have.
#include <thread>

#include <gmock/gmock.h>

#include "ArgumentParser/completions/CompletionShell.h"
#include "ArgumentParser/completions/CompletionsGenerator.h"
#include "ArgumentParser/help/HelpCommand.h"
#include "ParserFixture.h"
#include "support/Shells.h"
#include "support/TemporaryFiles.h"

using namespace parsertest;
using testsupport::allShells;
using testsupport::CompletedTool;
using testsupport::completeIn;
using testsupport::CompletionRow;
using testsupport::expectOffered;
using testsupport::Shell;

namespace {

enum class Weight { light, heavy };

constexpr ClosedSet<Weight, 2> closedSet(Weight) {
    using enum Weight;
    return {{{light, "light"}, {heavy, "heavy"}}};
}

constexpr const char* oddText = "It's \"odd\": [a] {b} (c)\\d $HOME `id` $(id)\n*end*; 100%";
constexpr const char* oddLine = "It's \"odd\": [a] {b} (c)\\d $HOME `id` $(id) *end*; 100%";

Texts told(const Texts& words, std::size_t index, std::string_view prefix) {
    const auto shell = requestingCompletionShell();
    const std::string name(shell ? completionShellNames[static_cast<std::size_t>(*shell)] : "none");
    return {platform::joined(words, ","), std::to_string(index), "<" + std::string(prefix) + ">",
            name + ":" + requestingCompletionShellVersion().value_or("none")};
}

CompletionKind words(std::vector<std::string_view> values) {
    return {CompletionKind::List{std::move(values)}};
}

struct Pack final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "pack-up", .abstract = oddText, .aliases = {"pk"}};
    }

    Argument<MaybeText> color{*this, "color", oddText, {.completion = words({"red", "green"})}};
    Argument<MaybeText> secret{*this,
                               "secret",
                               ArgumentHelp("", {.visibility = ArgumentVisibility::hidden}),
                               {.completion = words({"unseen"})}};
    Argument<Texts> files{*this, "files", Texts(), "", {.completion = CompletionKind{CompletionKind::File()}}};
    Option<MaybeText> odd{
        *this,
        "odd",
        oddText,
        {.names = {shortName(), longName()},
         .completion = words({"two words", "it's", "co:lon", "do$llar", "back\\slash", "`tick`", "pl*in", "(par)"})}};
    Option<MaybeText> directory{*this, "directory", "", completedBy(CompletionKind::Directory())};
    Option<MaybeText> document{*this, "document", "", completedBy(CompletionKind::File{{"md", "json"}})};
    Option<MaybeText> note{*this, "note", "", completedBy(CompletionKind::File{{"md"}})};
    Option<MaybeText> output{*this, "output", "",
                             completedBy(CompletionKind::ShellCommand{"printf '%s\\n' one 'two $words' th:ree"})};
    Option<MaybeText> custom{*this, "custom", "", completedBy(CompletionKind::Custom{told})};
    Option<Texts> tag{*this, "tag", Texts(), "", {.completion = words({"a", "b"})}};
    Option<Texts> items{
        *this, "items", Texts(), "", {.parsing = ParsingStrategy::upToNextOption, .completion = words({"x", "y"})}};
    Option<MaybeText> hidden{*this, "hidden-option", ArgumentHelp("", {.visibility = ArgumentVisibility::hidden})};
    Option<MaybeText> privately{*this, "private-option",
                                ArgumentHelp("", {.visibility = ArgumentVisibility::privateInput})};
    Flag<int> verbose{*this, "verbose", "", {.names = {shortName(), longName()}}};
    Flag<std::optional<Weight>> weight{*this, "weight", ""};
    Flag<bool> tint{*this, "tint", FlagInversion::prefixedNo, false, ""};
};

struct Unseen final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "unseen", .shouldDisplay = false}; }
    Option<MaybeText> level{*this, "level", "", {.completion = words({"low"})}};
};

struct Start final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "start"}; }
    Argument<MaybeText> where{*this, "where", "", {.completion = words({"here", "there"})}};
    Option<MaybeText> when{*this, "when", "", {.completion = words({"now"})}};
};

struct Job final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "job",
                .ungroupedSubcommands = {CommandType::of<Start>(), CommandType::of<Pack>()},
                .defaultSubcommand = CommandType::of<Start>()};
    }
};

struct Wrap final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "wrap", .ungroupedSubcommands = {CommandType::of<Start>()}};
    }
    Option<MaybeText> level{*this, "level", "", {.completion = words({"low"})}};
    Flag<bool> dry{*this, "dry", ""};
};

struct MyTool final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "my-tool",
                .ungroupedSubcommands = {CommandType::of<Pack>(), CommandType::of<Unseen>(), CommandType::of<Job>()},
                .groupedSubcommands = {{"More", {CommandType::of<Wrap>()}}}};
    }
};

class DeclaredCompletions : public testsupport::TemporaryFiles {
protected:
    DeclaredCompletions() {
        for (const char* name : {"a.md", "b c.md", "d.json", "e.txt"}) {
            file(name, "");
        }
        std::filesystem::create_directory(directory + "/dir one");
    }

    CompletedTool tool(Shell shell) const {
        return {"my-tool", completionScript(Tree(CommandType::of<MyTool>(), CommandType::of<HelpCommand>()), shell),
                directory};
    }
};

TEST_F(DeclaredCompletions, AreTheSameInAllShells) {
    const std::vector<CompletionRow> rows{
        CompletionRow{"my-tool ", "help job pack-up wrap"},
        CompletionRow{"my-tool un", ""},
        CompletionRow{"my-tool unseen --level ", "low"},
        CompletionRow{"my-tool pack-up --", "--custom --directory --document --heavy --help --items --light --no-tint "
                                            "--note --odd --output --tag --tint --verbose"},
        CompletionRow{"my-tool pk --di", "--directory"},
        CompletionRow{"my-tool pack-up -o 'two words' --heavy --tag a --no-tint -v --",
                      "--custom --directory --document --help --items --note --output --tag --verbose"},
        CompletionRow{"my-tool pack-up --odd=x -", "--custom --directory --document --heavy --help --items --light "
                                                   "--no-tint --note --output --tag --tint --verbose -h -v"},
        CompletionRow{"my-tool pack-up -vh --h", "--heavy"},
        CompletionRow{"my-tool pack-up --hidden-option --p", ""},
        CompletionRow{"my-tool pack-up --tag ", "a b"},
        CompletionRow{"my-tool pack-up --items x --ta", "--tag"},
        CompletionRow{"my-tool pack-up ", "green red"},
        CompletionRow{"my-tool pack-up -v --tag a r", "red"},
        CompletionRow{"my-tool pack-up red ", ""},
        CompletionRow{"my-tool pack-up red x ", "a.md b_c.md d.json dir_one e.txt"},
        CompletionRow{"my-tool pack-up red x a.md d.", "d.json"},
        CompletionRow{"my-tool pack-up -- red x --", ""},
        CompletionRow{"my-tool pack-up --directory ", "dir_one"},
        CompletionRow{"my-tool pack-up --document ", "a.md b_c.md d.json dir_one"},
        CompletionRow{"my-tool pack-up --note=", "a.md b_c.md dir_one"},
        CompletionRow{"my-tool pack-up --odd ", "(par) `tick` back\\slash co:lon do$llar it's pl*in two_words"},
        CompletionRow{"my-tool pack-up --odd two\\ ", "two_words"},
        CompletionRow{"my-tool pack-up --output t", "th:ree two_$words"},
        CompletionRow{"my-tool job ", "here pack-up start there"},
        CompletionRow{"my-tool job --when now ", "here there"},
        CompletionRow{"my-tool job start ", "here there"},
        CompletionRow{"my-tool wrap --", "--dry --help --level"},
        CompletionRow{"my-tool wrap --level low --dry ", "start"},
        CompletionRow{"my-tool wrap --level low start --", "--help --when"},
    };
    for (const Shell shell : allShells) {
        expectOffered(shell, tool(shell), rows);
    }
    // Values up to the next option are followed in bash alone.
    expectOffered(Shell::bash, tool(Shell::bash), {CompletionRow{"my-tool pack-up --items x ", "x y"}});
}

TEST_F(DeclaredCompletions, AreQuotedWhereTheShellPutsThemIn) {
    const auto lineBehind = [&](Shell shell, const std::string& line) {
        return completeIn(shell, tool(shell), {line}).offered.at(0).line;
    };
    const std::string start = "my-tool pack-up --odd";
    for (const Shell shell : {Shell::bash, Shell::zsh}) {
        EXPECT_EQ(lineBehind(shell, start + " two"), start + " two\\ words ");
        EXPECT_EQ(lineBehind(shell, start + "=it"), start + "=it\\'s ");
        EXPECT_EQ(lineBehind(shell, start + " \\(p"), start + " \\(par\\) ");
        EXPECT_EQ(lineBehind(shell, start + " \"two w"), start + " \"two words\" ");
        EXPECT_EQ(lineBehind(shell, start + " co:"), start + " co:lon ");
        EXPECT_EQ(lineBehind(shell, "my-tool pack-up --document b"), "my-tool pack-up --document b\\ c.md ");
        EXPECT_EQ(lineBehind(shell, "my-tool pack-up --directory=d"), "my-tool pack-up --directory=dir\\ one/");
    }
}

TEST_F(DeclaredCompletions, AreDescribedInZshAndFish) {
    const std::string text = oddLine;
    const std::tuple<Shell, const char*, std::string> rows[] = {
        {Shell::fish, "my-tool pack", "pack-up\t" + text + "\n"},
        {Shell::fish, "my-tool pack-up --od", "--odd\t" + text},
        {Shell::zsh, "my-tool ", "-- " + text},
        {Shell::zsh, "my-tool pack-up --o", "-- " + text}};
    for (const auto& [shell, line, described] : rows) {
        EXPECT_THAT(completeIn(shell, tool(shell), {line}).screen, testing::HasSubstr(described));
    }
}

/// The scripts ask the tool in words of their own; here a stand-in for it tells what they say.
TEST_F(DeclaredCompletions, AreAskedForByTheScripts) {
    file("my-tool", "#!/bin/sh\n[ -n \"$SAP_SHELL_VERSION\" ] && echo \"in $SAP_SHELL\"\n"
                    "for word; do printf '%s\\n' \"$word\"; done | paste -sd, | tr , /\necho 'two $words'\n");
    std::filesystem::permissions(directory + "/my-tool", std::filesystem::perms::owner_all);
    const std::string call = "---completion/pack-up/--/--custom/3/0/my-tool/pack-up/--custom";
    for (const Shell shell : allShells) {
        const std::string name(completionShellNames[static_cast<std::size_t>(shell)]);
        expectOffered(shell, tool(shell),
                      {CompletionRow{"my-tool pack-up --custom ", call + " in_" + name + " two_$words"},
                       CompletionRow{"my-tool pack-up --custom=t", "two_$words"}});
    }
}

// The tool's side of the same calls.

const std::thread::id mainThread = std::this_thread::get_id();

Texts toldByAnother(const Texts& given, std::size_t index, std::string_view prefix) {
    return std::this_thread::get_id() == mainThread ? Texts{"not on a worker"} : told(given, index, prefix);
}
Texts oddLines(const Texts&) {
    return {"a:b\\c", "d\ne"};
}
Texts noLines(const Texts&) {
    throw CommandFailure{"No idea."};
}

struct Asked final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "asked", .aliases = {"ask"}}; }

    Argument<MaybeText> first{*this, "first", ""};
    Argument<MaybeText> second{*this, "second", "", {.completion = CompletionKind{CompletionKind::Custom{told}}}};
    Option<MaybeText> option{*this,
                             "option",
                             "",
                             {.names = {longName(), shortName(), customLong("opt", true)},
                              .completion = CompletionKind{CompletionKind::Custom{told}}}};
    Option<MaybeText> later{*this, "later", "", completedBy(CompletionKind::CustomAsync{toldByAnother})};
    Option<MaybeText> former{*this, "former", "", completedBy(CompletionKind::CustomDeprecated{std::identity()})};
    Option<MaybeText> lines{*this, "lines", "", completedBy(CompletionKind::CustomDeprecated{oddLines})};
    Option<MaybeText> failing{*this, "failing", "", completedBy(CompletionKind::CustomDeprecated{noLines})};
};

struct AskedTool final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "tool", .ungroupedSubcommands = {CommandType::of<Asked>()}};
    }
};

class CustomCompletions : public testing::Test {
protected:
    ~CustomCompletions() override {
        unsetenv("SAP_SHELL");
        unsetenv("SAP_SHELL_VERSION");
    }
};

TEST_F(CustomCompletions, GetTheWordsTheIndexAndThePrefix) {
    const std::string invalid = "Internal error. Invalid state while parsing command-line arguments.";
    expectRows<AskedTool>({
        {"---completion asked -- positional@1 3 2 tool asked a bcd", "tool,asked,a,bcd\n3\n<bc>\nnone:none"},
        {"---completion ask -- --option 2 0 tool ask ''", "tool,ask,\n2\n<>\nnone:none"},
        {"---completion asked -- -o 9 4 tool asked", "tool,asked\n9\n<>\nnone:none"},
        {"---completion asked -- -opt 2 8 tool asked -opt=äöü", "tool,asked,-opt=äöü\n2\n<äöü>\nnone:none"},
        {"---completion asked -- --option 2 10 tool asked --option=xy --late",
         "tool,asked,--option=xy,--late\n2\n<x>\nnone:none"},
        {"---completion asked -- --later 1 9 tool x", "tool,x\n1\n<x>\nnone:none"},
        {"---completion asked -- --former 0 0 tool --", "tool\n--"},
        {"---completion asked -- --former 0 0", ""},
        {"---completion asked -- --lines 0 0", "a:b\\c\nd\ne"},
        {"---completion asked -- positional@0 0 0", invalid},
        {"---completion", invalid},
        {"---completion asked -- positional@2 0 0", invalid},
        {"---completion asked -- positional@-1 0 0", invalid},
        {"---completion asked -- --none 0 0", invalid},
        {"---completion asked -- --former tool x", "tool\nx"},
        {"---completion asked -- --option tool asked --option=xy", "tool,asked,--option=xy\n2\n<xy>\nnone:none"},
        {"---completion asked -- --option 1 tool xyz --late", "tool,xyz,--late\n1\n<xyz>\nnone:none"},
        {"---completion asked --former", invalid},
        {"---completion former -- --former 0 0", invalid},
        {"---completion asked -- --failing 0 0", "1|Error: No idea."},
    });
}

TEST_F(CustomCompletions, AreToldTheShellAndWordedForIt) {
    setenv("SAP_SHELL", "zsh", 1);
    setenv("SAP_SHELL_VERSION", "5.9-odd", 1);
    expectRows<AskedTool>({{"---completion asked -- --option 0 0", "\n0\n<>\nzsh\\:5.9-odd"},
                           {"---completion asked -- --lines 0 0", "a\\:b\\\\c\nd e"}});
    for (const char* shell : {"bash", "fish"}) {
        setenv("SAP_SHELL", shell, 1);
        expectRows<AskedTool>({{"---completion asked -- --lines 0 0", "a:b\\c\nd e"}});
    }
    setenv("SAP_SHELL", "tcsh", 1);
    expectRows<AskedTool>({{"---completion asked -- --option 0 0", "\n0\n<>\nnone:5.9-odd"}});
}

struct Plugin final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "plugin", ._superCommandName = "host"}; }
};

TEST(CompletionScripts, AreNotForPluginsOfAnotherTool) {
    expectRows<Plugin>({{"--generate-completion-script=zsh", "Unknown option '--generate-completion-script'"}});
}

} // namespace
