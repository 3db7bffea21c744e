#include <sstream>

#include <gtest/gtest.h>

#include "core/OntologyGate.h"
#include "support/CommandRow.h"

using namespace testsupport;

namespace {

/// The root's help with its list of subcommands reduced to their words.
std::string rootScreen(const std::vector<std::string>& arguments) {
    const ToolResult result = runTool(arguments);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
    std::string screen;
    bool isInList = false;
    std::istringstream lines(result.out);
    for (std::string line; std::getline(lines, line);) {
        const std::string word = line.substr(0, line.find(' ', 2));
        if (!isInList || line.empty() || line.starts_with("  See")) {
            screen += line + "\n";
        } else if (word != "  ") {
            screen += word;
        }
        isInList = isInList || line == "SUBCOMMANDS:";
    }
    return screen;
}

const std::string rootHelp = "OVERVIEW: Orvane CLI — access your personal context library from external\n"
                             "agents.\n"
                             "\n"
                             "USAGE: orvane-cli <subcommand>\n"
                             "\n"
                             "OPTIONS:\n"
                             "  --version               Show the version.\n"
                             "  -h, --help              Show help information.\n"
                             "\n"
                             "SUBCOMMANDS:\n"
                             "  status  whoami  check-in  profile  search  team  integration  node  source"
                             "  context  folder  transcript  delete  ls  find  cat  head  tail  stat  grep  mkdir"
                             "  tee  sed  replace-lines  mv  rm  rmdir\n"
                             "  See 'orvane-cli help <subcommand>' for detailed help.\n";

TEST(Root, AnswersBuiltInRequestsWithoutTheService) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"--help"}, {"help"}, {"help", "nonsense"}}) {
        EXPECT_EQ(rootScreen(arguments), rootHelp);
    }
    expectRows({
        {.arguments = {"--version"}, .out = "0.4.0\n"},
        {.arguments = {"ls", "--version"}, .out = "0.4.0\n"},
    });
}

TEST(Root, RefusesWhatItDoesNotKnow) {
    const std::string usage = "Usage: orvane-cli <subcommand>\n  See 'orvane-cli --help' for more information.\n";
    expectRows({
        {.arguments = {"lss"}, .err = "Error: Unexpected argument 'lss'\n" + usage, .status = 64},
        {.arguments = {"--json", "status"}, .err = "Error: Unknown option '--json'\n" + usage, .status = 64},
        {.arguments = {"--verson"},
         .err = "Error: Unknown option '--verson'. Did you mean '--version'?\n" + usage,
         .status = 64},
        {.arguments = {"ontology"}, .err = "Error: Unexpected argument 'ontology'\n" + usage, .status = 64},
        {.arguments = {"status", "-x"},
         .err = "Error: Unknown option '-x'\nUsage: orvane-cli status\n"
                "  See 'orvane-cli status --help' for more information.\n",
         .status = 64},
    });
}

TEST(Root, RepairsArgumentsThatAreNotUtf8) {
    expectRow({.arguments = {"search", "a\xFF\xC3"},
               .answers = {answer("{}")},
               .requests = {"GET /api/contexts/search?q=a%EF%BF%BD%EF%BF%BD&limit=10"},
               .out = "{}\n"});
}

TEST(Root, TakesTheScreenWidthFromColumnsThenTheTerminal) {
    const auto firstLine = [](const ToolSetting& setting) {
        const std::string out = runTool({"--help"}, setting).out;
        return out.substr(0, out.find('\n'));
    };
    ToolSetting setting;
    setting.environment["COLUMNS"] = "40";
    EXPECT_EQ(firstLine(setting), "OVERVIEW: Orvane CLI — access your");
    setting.environment["COLUMNS"] = "wide";
    EXPECT_EQ(firstLine(setting), "OVERVIEW: Orvane CLI — access your personal context library from external");
    setting.out = Output::terminal(50);
    EXPECT_EQ(firstLine(setting), "OVERVIEW: Orvane CLI — access your personal");
}

TEST(OntologyGate, IsOpenUnlessTurnedOff) {
    EXPECT_TRUE(orvane::isOntologyEnabled([](std::string_view) { return std::optional<bool>(); }));
    EXPECT_TRUE(orvane::isOntologyEnabled([](std::string_view) { return std::optional(true); }));
    EXPECT_FALSE(
        orvane::isOntologyEnabled([](std::string_view key) { return std::optional(key != "OrvaneOntologyEnabled"); }));
    EXPECT_TRUE(orvane::isOntologyEnabled(platform::infoDictionaryBoolean));
}

} // namespace
