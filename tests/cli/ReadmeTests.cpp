// What the pages show is what their commands print, and what they name is there.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/SampleLibrary.h"
#include "support/Shells.h"
#include "support/TemporaryFiles.h"
#include "support/ToolRunner.h"

using namespace testsupport;

namespace {

namespace fs = std::filesystem;

const fs::path projectDirectory = fs::path(README_FILE).parent_path();
const std::string skillFile = "docs/agents/orvane-cli/SKILL.md";
const std::string indent = "    ";
const std::string prompt = indent + "$ ";

std::string textOf(const fs::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A line for a shell, which goes on where it ends in a backslash, a bar or "&&", and what stands below it until the
/// next such line or the end of the indentation.
struct Example {
    std::string where;
    std::string command;
    std::string shown;
};

std::vector<Example> examples(const std::string& page, const std::string& contents) {
    std::vector<Example> examples;
    bool isInside = false;
    std::istringstream text(contents);
    int number = 0;
    for (std::string line; std::getline(text, line);) {
        ++number;
        isInside = line.starts_with(prompt) || (isInside && (line.empty() || line.starts_with(indent)));
        if (line.starts_with(prompt)) {
            examples.push_back({page + ":" + std::to_string(number), line.substr(prompt.size()), {}});
            std::string& command = examples.back().command;
            while ((command.ends_with('\\') || command.ends_with('|') || command.ends_with("&&")) &&
                   std::getline(text, line)) {
                ++number;
                command += "\n" + line;
            }
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

class Readme : public TemporaryFiles {
protected:
    /// Of a shell that finds the tool.
    ToolSetting shellSetting() const {
        ToolSetting setting;
        setting.directory = directory;
        setting.binary = "/bin/bash";
        setting.environment["PATH"] = fs::path(toolBinary()).parent_path().string() + ":/usr/bin:/bin";
        setting.environment["TMPDIR"] = directory;
        return setting;
    }

    /// What a shell in the test's directory prints.
    std::string printed(const std::string& line) const {
        return runTool({"-c", "{ " + line + "\n} 2>&1 | expand"}, shellSetting()).out;
    }

    /// Tries the page's commands on a library of its own, and returns how many there are.
    std::size_t expectShown(const std::string& page) const {
        const SampleLibrary library({"--log=" + directory + "/wire.jsonl"});
        const std::vector<Example> all = examples(page, textOf(projectDirectory / page));
        for (const Example& example : all) {
            EXPECT_EQ(comparable(printed(example.command)), comparable(example.shown)) << example.where;
        }
        return all.size();
    }
};

TEST_F(Readme, ShowsWhatItsCommandsPrint) {
    std::size_t count = 0;
    for (const char* page : {"README.md", "CONTRIBUTING.md", "SECURITY.md", "docs/architecture.md"}) {
        count += expectShown(page);
    }
    EXPECT_GT(count, 10U);
}

class Manual : public Readme {};

TEST_F(Manual, ShowsWhatItsCommandsPrint) {
    const fs::path pages = "packaging/manual/pages";
    for (const auto& entry : fs::directory_iterator(projectDirectory / pages)) {
        EXPECT_GT(expectShown(pages / entry.path().filename()), 1U) << entry.path();
    }
}

class AgentsSkill : public Readme {};

TEST_F(AgentsSkill, ShowsWhatItsCommandsPrint) {
    EXPECT_GE(expectShown(skillFile), 10U);
}

TEST_F(AgentsSkill, IsOneThatOrvaneTakes) {
    const SampleLibrary library;
    const std::string id = "$(orvane-cli skill create orvane-cli | jq -r .id)";
    const std::string file = "'" + (projectDirectory / skillFile).string() + "'";
    EXPECT_THAT(printed("orvane-cli skill file tee " + id + " SKILL.md --from-file " + file),
                testing::EndsWith(", valid\n"));
}

/// The terminal's lines in the picture, as examples of a page.
std::vector<Example> examplesOfPicture() {
    const std::string picture = textOf(projectDirectory / "docs/terminal.svg");
    const std::string screen = std::regex_replace(picture, std::regex("<text [^>]*>"), indent);
    return examples("docs/terminal.svg", std::regex_replace(screen, std::regex("<[^>]*>"), ""));
}

/// Without colours, and with any blanks as one.
std::string plain(const std::string& text) {
    static const std::regex colour("\x1B\\[[0-9;]*m");
    static const std::regex blanks("[ \t]+");
    return std::regex_replace(comparable(std::regex_replace(text, colour, "")), blanks, " ");
}

TEST_F(Readme, PicturesWhatTheToolShows) {
    const SampleLibrary library;
    ToolSetting setting = shellSetting();
    setting.out = Output::terminal();
    std::vector<Example> shown = examplesOfPicture();
    ASSERT_GT(shown.size(), 3U);
    const Example menu = shown.back();
    shown.pop_back();
    for (const Example& example : shown) {
        EXPECT_EQ(plain(runTool({"-c", "{ " + example.command + "\n} 2>&1"}, setting).out), plain(example.shown))
            << example.where << ": scripts/pictures draws it anew.";
    }
    const std::string script = runTool({"--generate-completion-script=zsh"}).out;
    const ShellSession session = completeIn(Shell::zsh, {"orvane-cli", script, directory}, {menu.command + " "});
    EXPECT_EQ(plain(session.screen), plain(menu.shown)) << menu.command << ": scripts/pictures draws it anew.";
}

class Pictures : public Readme {};

TEST_F(Pictures, PlotWhatTheTablesSay) {
    const std::string docs = (projectDirectory / "docs").string();
    const std::string plot = "cp '" + docs + "/performance.md' . && '" + projectDirectory.string() +
                             "/bench/plot' performance.md && ls && cat *.svg | diff - <(cat '" + docs +
                             "'/performance-*.svg)";
    EXPECT_EQ(printed(plot), "performance-growth.svg\nperformance-times.svg\nperformance.md\n")
        << "scripts/pictures draws the plots anew.";
}

/// Whether the name in a page, such as "Suite.Name" or "fuzz/json.cpp", is that of a test or a file.
bool isThere(const std::string& name) {
    if (name.find('/') != std::string::npos) {
        return fs::exists(projectDirectory / name);
    }
    const auto& all = *testing::UnitTest::GetInstance();
    for (int i = 0; i < all.total_test_suite_count(); ++i) {
        const testing::TestSuite& suite = *all.GetTestSuite(i);
        for (int j = 0; j < suite.total_test_count(); ++j) {
            if (suite.name() + std::string(".") + suite.GetTestInfo(j)->name() == name) {
                return true;
            }
        }
    }
    return false;
}

/// What stands between backticks in a page of docs and looks like `name`.
std::set<std::string> namesIn(const std::string& page, const std::string& name) {
    const std::string text = textOf(projectDirectory / "docs" / page);
    const std::regex named("`(" + name + ")`");
    std::set<std::string> names;
    for (std::sregex_iterator match(text.begin(), text.end(), named); match != std::sregex_iterator(); ++match) {
        names.insert((*match)[1]);
    }
    EXPECT_GT(names.size(), 20U);
    return names;
}

TEST(Reliability, NamesTestsThatAreThere) {
    for (const std::string& name : namesIn("reliability.md", "[A-Z][A-Za-z]+[.][A-Za-z]+|fuzz/[a-z]+[.]cpp")) {
        EXPECT_TRUE(isThere(name)) << name;
    }
}

std::set<std::string> wordsOf(const std::string& text) {
    static const std::regex word("\\w+");
    return {std::sregex_token_iterator(text.begin(), text.end(), word), std::sregex_token_iterator()};
}

/// All that the tool, its tests and the sample library are made of, and the names of the files it is in.
struct Sources {
    std::string text;
    std::set<std::string> files;
};

Sources sources() {
    Sources all;
    for (const char* folder : {"src", "tests", "sample"}) {
        for (const auto& entry : fs::recursive_directory_iterator(projectDirectory / folder)) {
            if (const fs::path extension = entry.path().extension(); extension == ".cpp" || extension == ".h") {
                all.text += textOf(entry.path());
                all.files.insert(entry.path().filename());
            }
        }
    }
    return all;
}

/// Whether a page may say `name`: a path, a source file's name, a test, or words of the sources.
bool isOf(const Sources& sources, const std::set<std::string>& words, const std::string& name) {
    if (name.front() != '/' && name.find('/') < name.size() - 1) {
        return fs::exists(projectDirectory / name);
    }
    if (name.ends_with(".cpp") || name.ends_with(".h")) {
        return sources.files.contains(name);
    }
    return isThere(name) || std::ranges::includes(words, wordsOf(name));
}

TEST(Architecture, NamesWhatIsThere) {
    const Sources all = sources();
    const std::set<std::string> words = wordsOf(all.text);
    for (const std::string& name : namesIn("architecture.md", "[^` ]+")) { // What has a blank is a command line.
        EXPECT_TRUE(isOf(all, words, name)) << name;
    }
}

TEST(Architecture, QuotesTheSources) {
    const Sources all = sources();
    std::istringstream page(textOf(projectDirectory / "docs/architecture.md"));
    bool isExample = false;
    std::size_t count = 0;
    for (std::string line; std::getline(page, line);) {
        isExample = line.starts_with(prompt) || (isExample && line.starts_with(indent));
        if (line.starts_with(indent) && !isExample) {
            ++count;
            EXPECT_NE(all.text.find(line.substr(line.find_first_not_of(' '))), std::string::npos) << line;
        }
    }
    EXPECT_GT(count, 10U);
}

} // namespace
