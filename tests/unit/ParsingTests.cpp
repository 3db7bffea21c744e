#include <concepts>
#include <cstdint>

#include "ArgumentParser/FilePath.h"
#include "unit/ParserFixture.h"

using namespace parsertest;

namespace {

enum class Speed { fast, slow, verySlow };
enum class Size { small, large };

constexpr ClosedSet<Speed, 3> closedSet(Speed) {
    using enum Speed;
    return {{{fast, "fast"}, {slow, "slow"}, {verySlow, "verySlow"}}};
}

constexpr ClosedSet<Size, 2> closedSet(Size) {
    using enum Size;
    return {{{small, "small"}, {large, "large"}}};
}

NameSpecification flagNames(Size size) {
    return size == Size::small ? NameSpecification{longName(), customShort("s")} : NameSpecification{longName()};
}

struct Options final : Tool {
    Option<MaybeText> file{*this, "file", "", {.names = {longName(), shortName()}}};
    Option<MaybeText> number{
        *this, "number", "", {.names = {customShort("n", true), longName(), customLong("num", true)}}};
    Option<std::vector<int>> scan{*this, "scan", {1, 2}, "", {.names = {longName(), shortName()}}};
    Option<Texts> any{*this, "any", {}, "", {.parsing = ParsingStrategy::unconditional}};
    Option<Texts> up{
        *this, "up", {"old"}, "", {.names = {longName(), shortName()}, .parsing = ParsingStrategy::upToNextOption}};
    Option<Texts> rest{*this, "rest", {}, "", {.parsing = ParsingStrategy::allRemainingInput}};
    Flag<bool> a{*this, "a", "", {.names = {shortName()}}};
    Flag<bool> b{*this, "b", "", {.names = {shortName()}}};
    Argument<Texts> values{*this, "values", {}, ""};

    void run() const override {
        print("file number scan any up rest a b values", file, number, scan, any, up, rest, a, b, values);
    }
};

TEST(Parsing, EveryStrategyOfAnOption) {
    const std::string rest = " scan=[1,2] up=[old]";
    expectRows<Options>({
        // The next element, which must be a value.
        Row{"--file= x", "file=x" + rest},
        Row{"--file=--b", "file=--b" + rest},
        Row{"-f=", "file=''" + rest},
        Row{"--file x --file y", "file=y" + rest},
        Row{"-fn F N", "file=F number=N" + rest},
        Row{"--file=a=b", "file=a=b" + rest},
        Row{"--file", "Missing value for '--file <file>'"},
        Row{"--file -5", "Missing value for '--file <file>'"},
        Row{"--file -- x", "Missing value for '--file <file>'"},
        // What is a value, and what is behind the terminator.
        Row{"- '' a-b=c -- -b --c --- -- ''", "scan=[1,2] up=[old] values=[-,'',a-b=c,-b,--c,---,--,'']"},
        Row{"-aé -b", "Unknown option '-é'"},
        // A dash under a combining mark is another character; "=" always ends the name.
        Row{"-\u0301 --file -\u0301x", "file=-\u0301x scan=[1,2] up=[old] values=[-\u0301]"},
        Row{"--\u0301", "Unknown option '--\u0301'"},
        Row{"--file=\u0301x", "file=\u0301x" + rest},
        Row{"-f=\uFE0Fx", "file=\uFE0Fx" + rest},
        // Joined, and a group that is a long name behind a single dash.
        Row{"-n5", "number=5" + rest},
        Row{"-nba=x", "number=ba=x" + rest},
        Row{"-n=5", "number=5" + rest},
        Row{"-an5", "Unknown option '-an5'. Did you mean '-n'?\n   or: Missing value for '-n <number>' in '-an5'"},
        Row{"-num 5", "number=5" + rest},
        Row{"-ab", "scan=[1,2] up=[old] a=true b=true"},
        // The next value anywhere behind the name; the first one clears the default.
        Row{"--scan 3 --scan=4", "scan=[3,4] up=[old]"},
        Row{"x --scan -a 3 -s 4 y", "scan=[3,4] up=[old] a=true values=[x,y]"},
        Row{"--scan --file 3 y", "file=y scan=[3] up=[old]"},
        Row{"--scan -a -- 3", "Missing value for '--scan <scan>'"},
        // Whatever stands at the next position.
        Row{"--any --help --any -- --any=x -ab", "scan=[1,2] any=[--help,--] up=[old] values=[--any=x,-ab]"},
        Row{"--any -ab c", "scan=[1,2] any=[-ab] up=[old] values=[c]"},
        // Values up to the next option.
        Row{"--up x y -a z --up w -- v", "scan=[1,2] up=[x,y,w] a=true values=[z,v]"},
        Row{"--up=x y", "scan=[1,2] up=[x] values=[y]"},
        Row{"-ua x", "Unknown option '-ua'. Did you mean '-u'?\n   or: Missing value for '-u <up>' in '-ua'"},
        Row{"--up -a", "Missing value for '--up <up>'"},
        // Everything that remains.
        Row{"v --rest=x -ab -- --file --", "scan=[1,2] up=[old] rest=[x,-ab,--,--file,--] values=[v]"},
        Row{"--rest --help", "scan=[1,2] up=[old] rest=[--help]"},
        Row{"--rest", "scan=[1,2] up=[old]"},
    });
}

template <ParsingStrategy strategy>
struct Positionals final : Tool {
    Argument<std::optional<int>> first{*this, "first", ""};
    Argument<Texts> rest{*this, "rest", {}, "", {.parsing = strategy}};
    Flag<bool> a{*this, "a", "", {.names = {shortName()}}};
    Flag<bool> b{*this, "b", "", {.names = {shortName()}}};

    void run() const override { print("first rest a b", first, rest, a, b); }
};

TEST(Parsing, EveryStrategyOfAPositional) {
    expectRows<Positionals<ParsingStrategy::nextValue>>({
        Row{"", ""},
        Row{"-a 1 x -b -- -y --", "first=1 rest=[x,-y,--] a=true b=true"},
        Row{"x", "The value 'x' is invalid for '<first>'"},
        Row{"x --help", "The value 'x' is invalid for '<first>'"},
        Row{"1 -ax", "Unknown option '-x'"},
        Row{"1 -xy", "Unknown option '-xy'. Did you mean '-a'?"},
    });
    expectRows<Positionals<ParsingStrategy::postTerminator>>({
        Row{"1 -a -- 2 -b", "first=1 rest=[2,-b] a=true"},
        Row{"-- 2", "rest=[2]"},
        Row{"1 2 -- 3", "Unexpected argument '2'"},
    });
    expectRows<Positionals<ParsingStrategy::allRemainingInput>>({
        Row{"-a 1 x -b --what --help", "first=1 rest=[x,-b,--what,--help] a=true"},
        Row{"-ba 1", "first=1 a=true b=true"},
    });
    expectRows<Positionals<ParsingStrategy::allUnrecognized>>({
        Row{"1 -a x --what=y -bz -- -w", "first=1 rest=[x,--what=y,-z,-w] a=true b=true"},
        Row{"1 -xy", "first=1 rest=[-xy]"},
    });
    using Unrecognized = Positionals<ParsingStrategy::allUnrecognized>;
    EXPECT_EQ(outcome<Unrecognized>("1 --help"), outcome<Unrecognized>("--help"));
}

struct Flags final : Tool {
    Flag<std::optional<bool>> color{
        *this, "color", FlagInversion::prefixedNo, "", {.names = {longName(), shortName()}}};
    Flag<bool> index{
        *this, "full-index", FlagInversion::prefixedEnableDisable,
        false, "",           {.names = {longName(), customShort("i")}, .exclusivity = FlagExclusivity::chooseLast}};
    Flag<int> verbose{*this, "verbose", "", {.names = {longName(), shortName()}}};
    Flag<Speed> speed{*this, "speed", Speed::slow, ""};
    Flag<std::optional<Size>> size{*this, "size", "", {.exclusivity = FlagExclusivity::chooseFirst}};

    void run() const override { print("color index verbose speed size", color, index, verbose, speed, size); }
};

TEST(Parsing, EveryFormOfAFlag) {
    expectRows<Flags>({
        Row{"", "verbose=0 speed=slow"},
        Row{"--color -c", "color=true verbose=0 speed=slow"},
        Row{"--no-color", "color=false verbose=0 speed=slow"},
        Row{"-c --no-color", "Value to be set with flag '--no-color' had already been set with flag '-c'"},
        Row{"-vc --no-color", "Value to be set with flag '--no-color' had already been set with flag 'c' in '-vc'"},
        Row{"-vvv --verbose", "verbose=4 speed=slow"},
        Row{"--enable-full-index --disable-full-index", "verbose=0 speed=slow"},
        Row{"--disable-full-index -i", "index=true verbose=0 speed=slow"},
        Row{"--fast --slow", "Value to be set with flag '--slow' had already been set with flag '--fast'"},
        Row{"-s --large --large", "verbose=0 speed=slow size=small"},
        Row{"--large -s", "verbose=0 speed=slow size=large"},
        Row{"--fast=1", "The option '--fast' does not take any value, but '1' was specified."},
        Row{"-vc=", "The option '-c' does not take any value, but '' was specified."},
    });
}

/// The texts of the values that `texts` are read as, and "-" for what is refused.
template <class T>
std::string reading(std::initializer_list<std::string_view> texts) {
    Texts values;
    for (const std::string_view text : texts) {
        const std::optional<T> value = ArgumentValue<T>::read(text);
        values.push_back(value ? textOf(*value) : "-");
    }
    return platform::joined(values, " ");
}

TEST(Parsing, ValueTypes) {
    EXPECT_EQ(reading<std::uint8_t>({"255", "256", "-1"}), "255 - -");
    EXPECT_EQ(reading<std::int64_t>({"-9223372036854775808", "9223372036854775808"}), "-9223372036854775808 -");
    EXPECT_EQ(reading<int>({"", " 1", "1 ", "1.0", "0x10", "1e3", "١", "--1", "+-1", "+7"}), "- - - - - - - - - 7");
    EXPECT_EQ(reading<double>({"-1.5e3", "+.5", "", "+-1", "1,5", "1.5x", "0x1p3", " 1"}), "-1500 0.5 - - - - - -");
    EXPECT_EQ(reading<double>({"inf", "-Infinity", "nan", "1e400", "1e-400", "-1e-400"}), "- - - - 0 -0");
    EXPECT_EQ(reading<float>({"0.25", "1e39", "1e-60"}), "0.25 - 0");
    EXPECT_EQ(reading<bool>({"true", "false", "True", "1", ""}), "true false - - -");
    EXPECT_EQ(reading<Speed>({"verySlow", "very-slow", ""}), "verySlow - -");
}

struct Unreadable {};

static_assert(!InputValue<std::optional<std::vector<int>>> && !InputValue<std::vector<std::optional<int>>>);
static_assert(std::default_initializable<Transform<int>> && !std::default_initializable<Transform<Unreadable>>);
static_assert(std::constructible_from<Transform<Unreadable>, Unreadable (*)(std::string_view)>);

int byteCount(std::string_view text) {
    return static_cast<int>(text.size());
}

struct Bytes final : Tool {
    Option<FilePath> file{*this, "file", ""};
    Option<std::string> text{*this, "text", ""};
    Option<std::optional<int>> size{*this, "size", "", {.transform = byteCount}};
    Argument<std::vector<FilePath>> others{*this, "others", {}, ""};

    void run() const override { print("file text size others", file, text, size, others); }
};

TEST(Parsing, KeepsTheBytesOfAFileName) {
    expectRows<Bytes>({
        Row{"--file a\xFF --text a\xFF\xC3 b\xFE", "file=a\xFF text=a\uFFFD\uFFFD others=[b\xFE]"},
        Row{"--file=\xC3( --text=\xC3( --size \xFF", "file=\xC3( text=\uFFFD( size=3"},
    });
    EXPECT_TRUE(std::holds_alternative<CompletionKind::File>(ArgumentValue<FilePath>::defaultCompletionKind().value));
}

/// The hooks of one run, in order.
std::string hooks;

struct Inner final : ParsableArguments {
    Option<MaybeText> deep{*this, "deep", ""};

    void validate() const override { hooks += "inner "; }
};

struct Outer final : ParsableArguments {
    OptionGroup<Inner> inner{*this, "inner"};
    Option<MaybeText> deep{*this, "outer-deep", "", {.names = {customLong("outer")}}};

    void validate() const override { hooks += "outer "; }
};

struct Root;

struct Leaf final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "leaf", .aliases = {"l", "branch"}}; }

    ParentCommand<Root> root{*this};
    OptionGroup<Outer> outer{*this, "outer"};
    Flag<bool> fail{*this, "fail", ""};
    Option<Texts> any{*this, "any", {}, "", {.parsing = ParsingStrategy::unconditional}};

    void validate() const override {
        hooks += "leaf ";
        if (fail) {
            throw ValidationError{"refused"};
        }
    }
    void run() const override;
};

struct Branch final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.version = "2", .ungroupedSubcommands = {CommandType::of<Leaf>()}, .aliases = {"same"}};
    }
    void validate() const override { hooks += "branch "; }
};

struct Required final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "required",
                .shouldDisplay = false,
                .helpNames = NameSpecification{customShort("?"), customLong("aide")}};
    }
    Argument<std::string> word{*this, "word", ""};
    Option<MaybeText> any{*this, "any", "", {.parsing = ParsingStrategy::unconditional}};
    void run() const override { print("word", word); }
};

/// Has an ancestor that isn't on its way down.
struct Orphan final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.helpNames = NameSpecification(), .aliases = {"same", "required"}};
    }
    ParentCommand<Branch> branch{*this};
};

struct Root final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "root",
                .version = "1",
                .ungroupedSubcommands = {CommandType::of<Branch>(), CommandType::of<Required>()},
                .groupedSubcommands = {{"More", {CommandType::of<Orphan>(), CommandType::of<Leaf>()}}},
                .defaultSubcommand = CommandType::of<Leaf>()};
    }
    Option<MaybeText> name{*this, "name", ""};
    void validate() const override { hooks += "root "; }
};

void Leaf::run() const {
    print("name inner outer", root->name, outer->inner->deep, outer->deep);
}

TEST(Parsing, WalksDownTheTree) {
    const auto run = [](std::string_view line) {
        hooks.clear();
        const std::string text = outcome<Root>(line);
        return text + "|" + hooks;
    };
    EXPECT_EQ(run("--outer o"), "outer=o|root inner outer leaf ");
    EXPECT_EQ(run("leaf --name n --deep d"), "name=n inner=d|root inner outer leaf ");
    EXPECT_EQ(run("branch l"), "|root branch inner outer leaf ");
    // The first child that answers to a word, in order, is the one.
    EXPECT_EQ(run("same branch"), "|root branch inner outer leaf ");
    EXPECT_EQ(run("required required"), "word=required|root ");
    EXPECT_NE(outcome<Root>("help l"), outcome<Root>("help"));
    EXPECT_NE(outcome<Root>("help branch l"), outcome<Root>("help l"));
    EXPECT_EQ(outcome<Root>("branch"), outcome<Root>("help branch"));
    EXPECT_EQ(outcome<Root>("branch --help"), outcome<Root>("help same unknown leaf"));
    EXPECT_EQ(outcome<Root>("help --help leaf -h -help"), outcome<Root>("help leaf"));
    expectRows<Root>({
        Row{"--version", "1"},
        Row{"branch --version", "2"},
        Row{"branch leaf x --version --fail", "2"},
        Row{"required --version", "1"},
        Row{"leaf --any --version --any --help --fail", "refused"},
        Row{"branch help", "Unexpected argument 'help'"},
        Row{"--outer o branch", "Unexpected argument 'branch'"},
        Row{"-- leaf", "Unexpected argument 'leaf'"},
        Row{"orphan", "Command 'branch' is not a parent of the current command."},
        Row{"required --any --aide", "Missing expected argument '<word>'"},
        Row{"required -h", "Missing expected argument '<word>'"},
        Row{"required x -h", "Unknown option '-h'"},
        Row{"help --what", "Unknown option '--what'"},
    });
    EXPECT_EQ(outcome<Root>("required --aide"), outcome<Root>("help required"));
    EXPECT_EQ(outcome<Root>("required -?"), outcome<Root>("help required"));
    EXPECT_EQ(outcome<Root>("required --aide-hidden"), outcome<Root>("help required") + "  --aide-hidden\n");
    EXPECT_EQ(outcome<Root>("branch leaf --fail x --help"), outcome<Root>("help branch leaf"));
}

struct Pass final : ParsableCommand {
    static CommandConfiguration configuration() { return {}; }
    Argument<Texts> rest{*this, "rest", {}, "", {.parsing = ParsingStrategy::allRemainingInput}};
    void run() const override { print("rest", rest); }
};
struct Plain final : ParsableCommand {
    static CommandConfiguration configuration() { return {}; }
    void run() const override { throw CleanExit::message(""); }
};
struct Runner final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.ungroupedSubcommands = {CommandType::of<Plain>(), CommandType::of<Pass>()},
                .defaultSubcommand = CommandType::of<Pass>()};
    }
    Flag<int> count{*this, "count", "", {.names = {customShort("a")}}};
    void validate() const override { hooks += std::to_string(count); }
};

TEST(Parsing, LeavesWhatAChildPassesOn) {
    const std::pair<const char*, const char*> rows[] = {{"-a plain -a", "2|"},
                                                        {"-a pass -a", "1|rest=[-a]"},
                                                        {"-a x -a", "1|rest=[x,-a]"},
                                                        {"-a -x -a", "1|rest=[-x,-a]"}};
    for (const auto& [line, expected] : rows) {
        hooks.clear();
        const std::string text = outcome<Runner>(line);
        EXPECT_EQ(hooks + "|" + text, expected) << line;
    }
}

} // namespace
