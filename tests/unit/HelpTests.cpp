#include <list>

#include "ArgumentParser/help/HelpGenerator.h"
#include "ArgumentParser/help/TextLayout.h"
#include "ArgumentParser/help/UsageGenerator.h"
#include "unit/ParserFixture.h"

using namespace parsertest;

namespace {

enum class Depth { shallow, veryVeryVeryVeryDeep };
enum class Mode { quiet, loud };

constexpr ClosedSet<Depth, 2> closedSet(Depth) {
    using enum Depth;
    return {{{shallow, "shallow"}, {veryVeryVeryVeryDeep, "veryVeryVeryVeryDeep"}}};
}

std::string_view describe(Depth depth) {
    return depth == Depth::shallow ? "Looks at what is on top, and at that only as far as it has to." : "Looks at all.";
}

constexpr ClosedSet<Mode, 2> closedSet(Mode) {
    using enum Mode;
    return {{{quiet, "quiet"}, {loud, "loud"}}};
}

std::string_view describe(Mode mode) {
    return mode == Mode::quiet ? "" : "Not quiet.";
}

std::string helpOf(const CommandType& command, int columns, ArgumentVisibility visibility = ArgumentVisibility::shown) {
    return HelpGenerator(Tree(command), visibility).rendered(columns);
}

struct Paging final : ParsableArguments {
    Option<int> limit{*this, "limit", 10, "How many."};
    Option<std::optional<int>> offset{*this, "offset", ArgumentHelp("", {.visibility = ArgumentVisibility::hidden})};
};

struct Child final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.abstract = "A child.", .version = "3", .helpNames = NameSpecification(), .aliases = {"c", "kid"}};
    }
    Argument<std::string> word{*this, "word", ""};
};
struct HiddenChild final : ParsableCommand {
    static CommandConfiguration configuration() { return {.abstract = "Hidden.", .shouldDisplay = false}; }
};

struct Rich final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "rich",
            ._superCommandName = "super tool",
            .abstract = "Does a great many things, one after the other, and then some more of them.",
            .discussion = "First paragraph.\n\nSecond one.",
            .version = "1.0",
            .ungroupedSubcommands = {CommandType::of<Child>(), CommandType::of<HiddenChild>()},
            .groupedSubcommands = {{"Extra", {CommandType::of<Child>()}}, {"Hidden", {CommandType::of<HiddenChild>()}}},
            .defaultSubcommand = CommandType::of<Child>()};
    }

    Argument<std::string> source{*this, "source-file", "What to read from."};
    Option<Depth> depth{*this, "depth", Depth::shallow, "How deep."};
    Option<std::optional<Depth>> look{
        *this, "look", ArgumentHelp("", {.discussion = {"Preamble."}, .argumentType = valueTable<Depth>()})};
    OptionGroup<Paging> paging{*this, "paging", {.title = "Paging"}};
    Flag<bool> color{*this, "color", FlagInversion::prefixedNo, true, "Colours.", {.names = {longName(), shortName()}}};
    Flag<std::optional<Depth>> family{*this, "family", ""};
    Flag<int> verbose{*this,
                      "verbose",
                      ArgumentHelp("More.", {.discussion = {"Once for a little more, twice for a "
                                                            "lot more, three times for all."}}),
                      {.names = {longName(), shortName()}}};
    Flag<bool> on{*this, "on", true, ""};
    Option<Texts> tags{*this, "tags", {"", "b"}, "Labels."};
    Option<Texts> none{*this, "none", {}, ""};
    Option<std::string> exact{*this, "exact", "", {.names = {customLong("exact567890")}}};
    Option<std::optional<int>> hidden{*this, "hidden",
                                      ArgumentHelp("Now seen.", {.visibility = ArgumentVisibility::hidden})};
    Option<std::optional<int>> own{*this, "own",
                                   ArgumentHelp("Never seen.", {.visibility = ArgumentVisibility::privateInput})};
    OptionGroup<Paging> silent{*this, "silent", {.title = "Silent", .visibility = ArgumentVisibility::privateInput}};
    Argument<Texts> more{*this, "more", {}, "More."};
};

TEST(Help, AWholeScreen) {
    EXPECT_EQ(helpOf(CommandType::of<Rich>(), 60), R"(OVERVIEW: Does a great many things, one after the other,
and then some more of them.

First paragraph.

Second one.

USAGE: super tool rich [<options>] <source-file> --exact567890 <exact567890> [<more> ...] <subcommand>

ARGUMENTS:
  <source-file>           What to read from.
  <more>                  More.

PAGING:
  --limit <limit>         How many. (default: 10)

OPTIONS:
  --depth <depth>         How deep. (values: shallow,
                          veryVeryVeryVeryDeep; default:
                          shallow)
  --look <look>
        Preamble.
        shallow           - Looks at what is on top, and at
                            that only as far as it has to.
        veryVeryVeryVeryDeep
                          - Looks at all.
  -c, --color/--no-color  Colours. (default: true)
  --shallow/--veryVeryVeryVeryDeep
                          Looks at what is on top, and at
                          that only as far as it has to.
  -v, --verbose           More.
        Once for a little more, twice for a lot more, three
        times for all.
  --on                    (default: true)
  --tags <tags>           Labels. (default: , b)
  --none <none>
  --exact567890 <exact567890>
  --version               Show the version.
  -h, --help              Show help information.

SUBCOMMANDS:
  child, c, kid (default) A child.

EXTRA SUBCOMMANDS:
  child, c, kid (default) A child.

  See 'super tool help rich <subcommand>' for detailed help.)");
}

TEST(Help, HiddenInputsAreShownOnRequest) {
    const std::string plain = helpOf(CommandType::of<Rich>(), 80);
    std::string all = helpOf(CommandType::of<Rich>(), 80, ArgumentVisibility::hidden);
    EXPECT_EQ(outcome<Rich>("--help"), plain);
    EXPECT_EQ(outcome<Rich>("--help-hidden"), all);
    for (const std::string row :
         {"  --hidden <hidden>       Now seen.\n", "  --offset <offset>\n", "  --help-hidden\n"}) {
        ASSERT_NE(all.find(row), std::string::npos) << row;
        all.erase(all.find(row), row.size());
    }
    EXPECT_EQ(all, plain);
}

TEST(Help, IsNamedByErrorsWithoutTheSuperCommand) {
    const std::string error = outcome<Rich>("--what");
    EXPECT_TRUE(
        error.ends_with("\nUsage: super tool rich [<options>] <source-file> --exact567890 <exact567890> [<more> ...] "
                        "<subcommand>\n  See 'rich --help' for more information."))
        << error;
}

struct Bare final : ParsableCommand {
    static CommandConfiguration configuration() { return {.usage = "", .helpNames = NameSpecification()}; }
};
struct Labels final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "labels", .usage = "this\nthat", .discussion = "Only.", .helpNames = NameSpecification()};
    }
    Flag<bool> fits{*this, "fits", "Beside.", {.names = {customLong("a23456789012345678901")}}};
    Flag<bool> tooLong{*this, "too-long", "Below it.", {.names = {customLong("a234567890123456789012")}}};
    Flag<std::optional<bool>> blank{*this, "v", FlagInversion::prefixedNo, "\n\n", {.names = {shortName()}}};
    Flag<Mode> mode{*this, "mode", Mode::loud, ""};
};

TEST(Help, LabelsAndEmptyParts) {
    const std::string top = "OVERVIEW: \nOnly.\n\nUSAGE: this\n       that\n\nOPTIONS:\n";
    EXPECT_EQ(helpOf(CommandType::of<Bare>(), 80), "");
    EXPECT_EQ(helpOf(CommandType::of<Labels>(), 80), top + R"(  --a23456789012345678901 Beside.
  --a234567890123456789012
                          Below it.
  -v
  --quiet/--loud          Not quiet. (default: loud)
)");
    // No room beside the labels.
    EXPECT_EQ(helpOf(CommandType::of<Labels>(), 26),
              top + "  --a23456789012345678901\n  --a234567890123456789012\n  -v\n  --quiet/--loud\n");
}

constexpr std::string_view keys[] = {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m"};

template <std::size_t flagCount, std::size_t optionCount>
struct Many final : Tool {
    std::list<Flag<bool>> flags;
    std::list<Option<int>> options;
    Flag<bool> unseen{*this, "unseen", ArgumentHelp("", {.visibility = ArgumentVisibility::hidden})};

    Many() {
        for (std::size_t i = 0; i < std::max(flagCount, optionCount); ++i) {
            i < flagCount ? void(flags.emplace_back(*this, keys[i], ""))
                          : void(options.emplace_back(*this, keys[i], ""));
        }
    }
};

template <class Command>
std::string usageOf() {
    return usageText(Tree(CommandType::of<Command>()), Command().argumentSet());
}

struct Forms final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "many forms", .ungroupedSubcommands = {CommandType::of<Child>()}};
    }
    Option<std::vector<int>> list{*this, "list", "", {.names = {shortName(), customLong("long", true)}}};
    Flag<int> count{*this, "count", ""};
    Flag<bool> on{*this, "on", FlagInversion::prefixedEnableDisable, "", {.names = {longName(), shortName()}}};
    Argument<Texts> pass{
        *this, "pass", {}, ArgumentHelp("", {.valueName = "what"}), {.parsing = ParsingStrategy::allRemainingInput}};
};

TEST(Help, Usage) {
    EXPECT_EQ((usageOf<Many<0, 0>>()), "tool");
    EXPECT_EQ((usageOf<Many<12, 0>>()), "tool [--a] [--b] [--c] [--d] [--e] [--f] [--g] [--h] [--i] [--j] [--k] [--l]");
    EXPECT_EQ((usageOf<Many<13, 0>>()), "tool <options>");
    EXPECT_EQ((usageOf<Many<12, 13>>()), "tool [<options>] --m <m>");
    EXPECT_EQ((usageOf<Many<0, 13>>()), "tool <options>");
    EXPECT_EQ(usageOf<Forms>(),
              "many forms -long <long> ... [--count ...] --enable-on --disable-on [-- <what> ...] <subcommand>");
    EXPECT_TRUE(
        helpOf(CommandType::of<Forms>(), 80).ends_with("  See 'many forms help <subcommand>' for detailed help."));
}

TEST(Help, Wrapping) {
    const std::tuple<const char*, int, int, const char*> rows[] = {
        {"", 10, 0, ""},
        {"one two three", 80, 2, "  one two three"},
        {"one two three", 9, 2, "  one\n  two\n  three"}, // a word needs its blank on the line
        {"one two", 7, 0, "one two"},
        {"unbreakable word\nlonger\na b", 4, 1, " unbreakable\n word\n longer\n a b"},
        {"a\n\nb c", 40, 3, "   a\n\n   b c"},
        {"aa bb\ncc dd ee", 8, 0, "aa bb\ncc dd ee"},
        {"größe größe", 6, 0, "größe\ngröße"},
        {"text", 5, 5, ""}};
    for (const auto& [text, columns, indent, expected] : rows) {
        EXPECT_EQ(wrapped(text, columns, indent), expected) << text << " in " << columns;
    }
}

} // namespace
