// What the README shows is what its commands print.
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
    setting.environment["PATH"] = std::filesystem::path(ORVANE_CLI_BINARY).parent_path().string() + ":/usr/bin:/bin";
    const std::vector<Example> all = examples();
    EXPECT_GT(all.size(), 10U);
    for (const Example& example : all) {
        const ToolResult result = runTool({"-c", "{ " + example.command + "\n} 2>&1 | expand"}, setting);
        EXPECT_EQ(comparable(result.out), comparable(example.shown)) << "README.md:" << example.line;
    }
}

} // namespace
