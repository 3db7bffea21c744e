// What the README shows is what its commands print, and the tests that other pages name are there.
#include <filesystem>
#include <fstream>
#include <regex>

#include <gtest/gtest.h>

#include "support/SampleLibrary.h"
#include "support/ToolRunner.h"

using namespace testsupport;

namespace {

/// A line for a shell, and what stands below it until the next such line or the end of the indentation.
struct Example {
    int line = 0; ///< In the README, from 1.
    std::string command;
    std::string shown;
};

std::vector<Example> examples() {
    const std::string indent = "    ";
    const std::string prompt = indent + "$ ";
    std::vector<Example> examples;
    bool isInside = false;
    std::ifstream readme(README_FILE);
    int number = 0;
    for (std::string line; std::getline(readme, line);) {
        ++number;
        isInside = line.starts_with(prompt) || (isInside && (line.empty() || line.starts_with(indent)));
        if (line.starts_with(prompt)) {
            examples.push_back({number, line.substr(prompt.size()), {}});
        } else if (isInside) {
            examples.back().shown += (line.empty() ? line : line.substr(indent.size())) + "\n";
        }
    }
    return examples;
}

/// With another day's dates, and the ids of what was just made, as one word each, and without blanks that are not seen.
std::string comparable(std::string text) {
    static const std::regex date("[A-Z][a-z]{2} [ 0-9][0-9] ([0-9]{2}:[0-9]{2}| [0-9]{4})");
    static const std::regex newId("(created .*  )[0-9a-f-]{36}");
    static const std::regex unseen(" +\n");
    text.erase(text.find_last_not_of('\n') + 1);
    text = std::regex_replace(text + "\n", unseen, "\n");
    return std::regex_replace(std::regex_replace(text, date, "DATE"), newId, "$1ID");
}

TEST(Readme, ShowsWhatItsCommandsPrint) {
    const SampleLibrary library;
    ToolSetting setting;
    setting.binary = "/bin/bash";
    setting.environment["PATH"] = std::filesystem::path(toolBinary()).parent_path().string() + ":/usr/bin:/bin";
    const std::vector<Example> all = examples();
    EXPECT_GT(all.size(), 10U);
    for (const Example& example : all) {
        const ToolResult result = runTool({"-c", "{ " + example.command + "\n} 2>&1 | expand"}, setting);
        EXPECT_EQ(comparable(result.out), comparable(example.shown)) << "README.md:" << example.line;
    }
}

/// Whether the name in a page, such as "Suite.Name" or "fuzz/json.cpp", is that of a test or a file.
bool isThere(const std::string& name, const std::filesystem::path& root) {
    const std::size_t dot = name.find('.');
    if (name.find('/') != std::string::npos) {
        return std::filesystem::exists(root / name);
    }
    const auto& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *all.GetTestSuite(i);
        for (int j = 0; suite.name() == name.substr(0, dot) && j < suite.total_test_count(); ++j) {
            if (suite.GetTestInfo(j)->name() == name.substr(dot + 1)) {
                return true;
            }
        }
    }
    return false;
}

TEST(Reliability, NamesTestsThatAreThere) {
    const std::filesystem::path root = std::filesystem::path(README_FILE).parent_path();
    std::ifstream page(root / "docs/reliability.md");
    const std::string text{std::istreambuf_iterator<char>(page), {}};
    const std::regex named("`([A-Z][A-Za-z]+[.][A-Za-z]+|fuzz/[a-z]+[.]cpp)`");
    std::size_t count = 0;
    for (std::sregex_iterator match(text.begin(), text.end(), named); match != std::sregex_iterator(); ++match) {
        ++count;
        EXPECT_TRUE(isThere((*match)[1], root)) << (*match)[1];
    }
    EXPECT_GT(count, 20U);
}

} // namespace
