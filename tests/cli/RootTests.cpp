#include "core/OntologyGate.h"
#include "support/CommandRow.h"

using namespace testsupport;

namespace {

TEST(Root, TellsItsVersion) {
    expectRow({.arguments = "--version", .out = ORVANE_CLI_VERSION "\n"});
    expectRow({.arguments = "ls --version", .out = ORVANE_CLI_VERSION "\n"});
}

TEST(Root, RefusesWhatItDoesNotKnow) {
    expectRefused("lss", "Unexpected argument 'lss'");
    expectRefused("--json status", "Unknown option '--json'");
    expectRefused("--verson", "Unknown option '--verson'. Did you mean '--version'?");
    expectRefused("status -x", "Unknown option '-x'");
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
