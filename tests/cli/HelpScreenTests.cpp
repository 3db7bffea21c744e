// All help screens, compared with tests/golden/help.txt. After a wanted change, rewrite the file and read its diff:
//   ORVANE_UPDATE_GOLDEN=1 ctest --preset release -R HelpScreens
#include <algorithm>
#include <cstdlib>
#include <fstream>

#include <gtest/gtest.h>

#include "support/HelpScreens.h"
#include "support/ToolRunner.h"

using namespace testsupport;

namespace {

TEST(HelpScreens, AreThoseOfTheGoldenFile) {
    const std::vector<HelpScreen> printed = printedHelpScreens();
    if (std::getenv("ORVANE_UPDATE_GOLDEN") != nullptr) {
        ASSERT_TRUE(std::ofstream(HELP_SCREENS_FILE, std::ios::trunc) << asGolden(printed) << std::flush);
        GTEST_SKIP() << "the golden file was rewritten";
    }
    const std::vector<HelpScreen>& golden = goldenHelpScreens();
    for (std::size_t i = 0; i < std::min(golden.size(), printed.size()); ++i) {
        ASSERT_EQ(asGolden({golden[i]}), asGolden({printed[i]}));
    }
    EXPECT_EQ(golden.size(), printed.size());
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
