// All help screens, compared with tests/golden/help.txt. After a wanted change, rewrite the file and read its diff:
//   ORVANE_UPDATE_GOLDEN=1 ctest --preset release -R HelpScreens
#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include "support/HelpScreens.h"
#include "support/ToolRunner.h"

using namespace testsupport;

namespace {

std::vector<std::string> commandsOf(const std::vector<HelpScreen>& screens) {
    std::vector<std::string> commands;
    for (const HelpScreen& screen : screens) {
        commands.push_back(screen.command);
    }
    return commands;
}

/// The line of `text` in which the byte at `offset` stands.
std::string lineAt(const std::string& text, std::size_t offset) {
    const std::size_t start = offset == 0 ? 0 : text.rfind('\n', offset - 1) + 1;
    return offset > text.size() ? "" : text.substr(start, text.find('\n', start) - start);
}

void expectSame(const HelpScreen& golden, const HelpScreen& printed) {
    const auto [left, right] = std::ranges::mismatch(golden.text, printed.text);
    if (left != golden.text.end() || right != printed.text.end()) {
        const std::size_t offset = static_cast<std::size_t>(left - golden.text.begin());
        ADD_FAILURE() << golden.command << " --help differs in line " << 1 + std::count(golden.text.begin(), left, '\n')
                      << "\n   golden: " << lineAt(golden.text, offset)
                      << "\n  printed: " << lineAt(printed.text, offset);
    }
}

TEST(HelpScreens, AreThoseOfTheGoldenFile) {
    const std::vector<HelpScreen> printed = printedHelpScreens();
    if (std::getenv("ORVANE_UPDATE_GOLDEN") != nullptr) {
        writeGoldenHelpScreens(printed);
        GTEST_SKIP() << "the golden file was rewritten";
    }
    EXPECT_EQ(commandsOf(goldenHelpScreens()), commandsOf(printed));
    for (const HelpScreen& golden : goldenHelpScreens()) {
        const auto found = std::ranges::find(printed, golden.command, &HelpScreen::command);
        if (found != printed.end()) {
            expectSame(golden, *found);
        }
    }
}

TEST(HelpScreens, AreAlsoWhatHelpPrints) {
    const auto printed = [](const std::vector<std::string>& arguments) { return runTool(arguments).out; };
    const std::string root = screenOfCommandRunBy({"-"}).text;
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"-h"}, {"help"}, {"help", "nonsense"}}) {
        EXPECT_EQ(printed(arguments), root);
    }
    EXPECT_EQ(printed({"help", "grep"}), screenOfCommandRunBy({"grep"}).text);
    EXPECT_EQ(printed({"help", "context", "create"}), screenOfCommandRunBy({"context", "create"}).text);
    EXPECT_EQ(printed({"help", "team"}), printed({"team", "-h"}));
}

} // namespace
