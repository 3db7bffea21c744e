#include <map>
#include <new>
#include <stdexcept>

#include "unit/ParserFixture.h"

using namespace parsertest;

namespace {

/// A type with `count` known values, none of which it reads.
template <std::size_t count>
struct Letter {
    static std::optional<Letter> fromArgument(std::string_view) { return std::nullopt; }
    static std::vector<std::string_view> allValueStrings() {
        constexpr std::string_view all[] = {"a", "b", "c", "d", "e", "f"};
        return {all, all + count};
    }
    std::string_view text() const { return {}; }
};

int evenNumber(std::string_view text) {
    const std::optional<int> number = platform::parseNumber<int>(text);
    if (!number) {
        throw std::runtime_error("not a number at all");
    }
    if (*number == 0) {
        throw std::bad_alloc();
    }
    if (*number % 2 != 0) {
        throw ValidationError{"odd"};
    }
    return *number;
}

constexpr ArgumentHelp::Details hiddenInput{.visibility = ArgumentVisibility::hidden};

struct Failing final : Tool {
    Option<std::optional<Letter<3>>> kind{*this, "kind", "What kind."};
    Option<std::optional<Letter<6>>> letter{*this, "letter", ArgumentHelp("", {.valueName = "x"})};
    Option<std::optional<Letter<1>>> only{*this, "only", "", {.names = {shortName(), longName(), customLong("sole")}}};
    Option<std::optional<int>> even{*this, "even", "", {.transform = evenNumber}};
    Option<std::optional<int>> secretNumber{*this, "secret-number", ArgumentHelp("Hush.", hiddenInput)};
    Argument<std::optional<int>> count{*this, "count", "How many."};
    Argument<std::optional<int>> secret{*this, "secret", ArgumentHelp("Hush.", hiddenInput)};

    void run() const override {}
};

TEST(ParserErrors, Messages) {
    const std::string kindHelp = "Help:  --kind <kind>  What kind.\nError: ";
    expectRows<Failing>({
        Row{"", "ran"},
        Row{"--kin", "Unknown option '--kin'. Did you mean '--kind'?"},
        Row{"--hlp", "Unknown option '--hlp'. Did you mean '--help'?"},
        Row{"--onen", "Unknown option '--onen'. Did you mean '--only'?"}, // as far from --even, which comes later
        Row{"--letterabc", "Unknown option '--letterabc'. Did you mean '--letter'?"},
        Row{"--letterabcd", "Unknown option '--letterabcd'"},
        Row{"-kind", "Unknown option '-kind'. Did you mean '--kind'?"},
        Row{"--secret-numbr", "Unknown option '--secret-numbr'"},
        Row{"--version", "Unknown option '--version'"},
        Row{"1 2 3 --what 4", "Unknown option '--what'"},
        Row{"---kind", "Invalid option: ---kind"},
        Row{"-=x", "Invalid option: -=x"},
        Row{"-k-x", "Invalid option: --"},
        Row{"--kind", kindHelp + "Missing value for '--kind <kind>'"},
        Row{"--letter", "Missing value for '--letter <x>'"},
        Row{"-o", "Missing value for '-o <only>'"},
        Row{"-ox=1", "Unknown option '-ox'. Did you mean '-o'?\n   or: Missing value for '-o <only>' in '-ox=1'"},
        Row{"--secret-number", "Missing value for '--secret-number'"},
        Row{"--kind x",
            kindHelp + "The value 'x' is invalid for '--kind <kind>'. Please provide one of 'a', 'b' or 'c'."},
        Row{"--letter x", "The value 'x' is invalid for '--letter <x>'. Please provide one of the following:\n"
                          "  - 'a'\n  - 'b'\n  - 'c'\n  - 'd'\n  - 'e'\n  - 'f'"},
        Row{"--sole x", "The value 'x' is invalid for '--sole <only>'. Please provide one of 'a'."},
        Row{"--even 3", "The value '3' is invalid for '--even <even>': odd"},
        Row{"--even 0", "1|Error: Out of memory."},
        Row{"--even x", "The value 'x' is invalid for '--even <even>': not a number at all"},
        Row{"--secret-number x", "The value 'x' is invalid for '--secret-number'"},
        Row{"x", "Help:  <count>  How many.\nError: The value 'x' is invalid for '<count>'"},
        Row{"1 x", "The value 'x' is invalid."},
        Row{"1 2 3 -- -4 ''", "3 unexpected arguments: '3', '-4', ''"},
    });
    EXPECT_EQ(outcome<Failing>("-x"),
              "64|Error: Unknown option '-x'\n"
              "Usage: tool [--kind <kind>] [--letter <x>] [--only <only>] [--even <even>] [<count>]\n"
              "  See 'tool --help' for more information.");
}

/// Throws what its argument names from `run`, or from `validate` with --early.
struct Thrower final : ParsableCommand {
    static CommandConfiguration configuration() { return {.commandName = "thrower"}; }

    Argument<std::string> what{*this, "what", "What to throw."};
    Flag<bool> early{*this, "early", ""};

    void validate() const override {
        if (early) {
            fail();
        }
    }
    void run() const override { fail(); }

private:
    void fail() const {
        static const std::map<std::string_view, void (*)()> failures{
            {"validation", [] { throw ValidationError{"refused"}; }},
            {"wordless", [] { throw ValidationError{}; }},
            {"code", [] { throw ExitCode{3}; }},
            {"message", [] { throw CleanExit::message("done"); }},
            {"help", [] { throw CleanExit::helpRequest(); }},
            {"named", [] { throw CleanExit::helpRequest(CommandType::of<Thrower>()); }},
            {"failure", [] { throw CommandFailure{"failed"}; }},
            {"memory", [] { throw std::bad_alloc(); }},
            {"nothing", [] { throw std::runtime_error(""); }},
            {"other", [] { throw std::runtime_error("broken"); }},
            {"number", [] { throw 1; }},
        };
        failures.at (*what)();
    }
};

struct Silent final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "silent", .usage = "", .helpNames = NameSpecification{customShort("?")}};
    }
    Flag<bool> color{*this, "color", FlagInversion::prefixedNo, ""};
    Option<Texts> words{*this, "words", ArgumentHelp("", {.visibility = ArgumentVisibility::privateInput})};
};

struct Top final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "top",
                .usage = "top one\ntop two",
                .ungroupedSubcommands = {CommandType::of<Thrower>(), CommandType::of<Silent>()}};
    }
};

TEST(ParserErrors, WhatACommandThrows) {
    const std::string topUsage = "Usage: top one\n       top two\n  See 'top --help' for more information.";
    const std::string usage = "Usage: top thrower <what> [--early]\n"
                              "  See 'top thrower --help' for more information.";
    const std::pair<const char*, std::string> rows[] = {
        {"thrower validation", "64|Error: refused\n" + topUsage},
        {"thrower validation --early", "64|Error: refused\n" + usage},
        {"thrower wordless --early", "64|" + usage},
        {"thrower code", "3|"},
        {"thrower message", "done"},
        {"thrower other", "1|Error: broken"},
        {"thrower failure --early", "1|Error: failed"},
        {"thrower number", "1|Error: Unknown error."},
        {"thrower memory", "1|Error: Out of memory."},
        {"thrower nothing", "1|"},
        {"thrower help", outcome<Top>("--help")},
        {"thrower help --early", outcome<Top>("help thrower")},
        {"thrower named", outcome<Top>("help thrower")},
        {"thrower", "64|Help:  <what>  What to throw.\nError: Missing expected argument '<what>'\n" + usage},
        {"", outcome<Top>("--help")},
        {"silent", "64|Error: Missing one of: '--color', '--no-color'\n  See 'top silent -?' for more information."},
        {"silent --color", "64|Error: No value set for non-argument var words. Replace with a static variable, or let "
                           "constant.\n  See 'top silent -?' for more information."},
    };
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(outcome<Top>(line), expected) << line;
    }
}

template <class Thrown>
struct Early final : Tool {
    void validate() const override { throw Thrown{}; }
};

struct Refusing : CommandFailure {
    Refusing() : CommandFailure{"failed"} {}
};
struct Leaving : ExitCode {
    Leaving() : ExitCode{3} {}
};

struct Group final : ParsableArguments {
    Option<std::string> name{*this, "name", ArgumentHelp("", {.visibility = ArgumentVisibility::privateInput})};
};
struct Grouped final : Tool {
    OptionGroup<Group> group{*this, "group"};
};

TEST(ParserErrors, NameAnInputWithItsGroup) {
    expectRows<Grouped>({{"--", "No value set for non-argument var group.name. Replace with a static variable, or let "
                                "constant."}});
}

TEST(ParserErrors, WithoutAnyArgumentsShowTheHelpOfTheRoot) {
    EXPECT_EQ(outcome<Early<CleanExit>>(""), outcome<Early<CleanExit>>("--help"));
    const std::string help = outcome<Tool>("--help");
    EXPECT_EQ(outcome<Early<Refusing>>(""), "64|Error: failed\n\n" + help);
    EXPECT_EQ(outcome<Early<int>>(""), "64|\n" + help);
    EXPECT_EQ(outcome<Early<Leaving>>(""), "3|");
    EXPECT_EQ(outcome<Early<std::bad_alloc>>(""), "1|Error: Out of memory.");
    EXPECT_EQ(outcome<Thrower>(""), "64|Error: Missing expected argument '<what>'\n\n" + outcome<Thrower>("--help"));
}

template <class Command>
void construct() {
    Tree(CommandType::of<Command>()).child("help");
}

struct OwnChild final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "own", .ungroupedSubcommands = {CommandType::of<OwnChild>()}};
    }
};
struct OwnAlias final : ParsableCommand {
    static CommandConfiguration configuration() { return {.aliases = {"x", "own-alias"}}; }
};
struct StrayDefault final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "stray", .defaultSubcommand = CommandType::of<Thrower>()};
    }
};
struct Misplaced final : Tool {
    Option<Texts> post{*this, "post", {}, "", {.parsing = ParsingStrategy::postTerminator}};
    Option<Texts> left{*this, "left", {}, "", {.parsing = ParsingStrategy::allUnrecognized}};
};

std::string banner(const std::string& message) {
    const std::string rule(70, '-');
    return "^\n" + rule + "\n" + message + "\n" + rule + "\n\n$";
}

TEST(ParserErrors, FaultsOfADeclaration) {
    EXPECT_EXIT(construct<OwnChild>(), testing::ExitedWithCode(1),
                banner("The command \"own\" can't have itself as its own subcommand\\."));
    EXPECT_EXIT(construct<OwnAlias>(), testing::ExitedWithCode(1),
                banner("The command \"own-alias\" can't have an alias with the same name as the command itself\\."));
    EXPECT_EXIT(*Thrower().what, testing::ExitedWithCode(1),
                banner("Can't read a value from a parsable\u00A0argument definition\\.(.|\n)*"));
    const std::string message = "Internal error. Invalid state while parsing command-line arguments.";
    expectRows<StrayDefault>({Row{"x", message}});
    for (const char* line : {"--post x", "--post", "--post=x", "--left x", "--left", "--left=x"}) {
        expectRows<Misplaced>({Row{line, message}});
    }
}

} // namespace
