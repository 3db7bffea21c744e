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

std::set<std::string> found(const std::string& text, const std::regex& what, const std::string& format) {
    std::set<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), what); match != std::sregex_iterator(); ++match) {
        found.insert(match->format(format));
    }
    return found;
}

TEST(Pictures, PlotWhatTheTablesSay) {
    // Cells have no bars then. A row that is compared with nothing isn't plotted.
    const std::string page =
        std::regex_replace(textOf(projectDirectory / "docs/performance.md"), std::regex(R"(\\\||`)"), "");
    const std::regex row(R"(\| ([^|\n]+) \| ([^|\n]+) \| (\d[^|\n]+) \| [^|\n]+ \| [^|\n]+ \| ([^|\n]+) \|)");
    std::string plots = textOf(projectDirectory / "docs/performance-times.svg");
    plots += textOf(projectDirectory / "docs/performance-growth.svg");
    plots = std::regex_replace(plots, std::regex("[|]"), "");
    const std::set<std::string> rows = found(page, row, "$1 · $2 · $3 · $4");
    const std::set<std::string> plotted = found(plots, std::regex("<g><title>(.*)</title>"), "$1");
    std::vector<std::string> wrong;
    std::ranges::set_symmetric_difference(plotted, rows, std::back_inserter(wrong));
    for (const std::string& each : wrong) {
        ADD_FAILURE() << each << (rows.contains(each) ? " is not plotted" : " is plotted alone")
                      << ": scripts/pictures draws the plots anew.";
    }
    EXPECT_GT(rows.size(), 10U);
}

/// Whether the name in a page, such as "Suite.Name" or "fuzz/json.cpp", is that of a test or a file.
bool isThere(const std::string& name) {
    const std::size_t dot = name.find('.');
    if (name.find('/') != std::string::npos) {
        return fs::exists(projectDirectory / name);
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
    const std::string text = textOf(projectDirectory / "docs/reliability.md");
    const std::regex named("`([A-Z][A-Za-z]+[.][A-Za-z]+|fuzz/[a-z]+[.]cpp)`");
    std::size_t count = 0;
    for (std::sregex_iterator match(text.begin(), text.end(), named); match != std::sregex_iterator(); ++match) {
        ++count;
        EXPECT_TRUE(isThere((*match)[1])) << (*match)[1];
    }
    EXPECT_GT(count, 20U);
}

std::set<std::string> wordsOf(const std::string& text) {
    const auto isOfWord = [](char byte) {
        return byte == '_' || (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
               (byte >= 'a' && byte <= 'z');
    };
    std::set<std::string> words;
    for (auto start = text.begin(); start != text.end();) {
        start = std::find_if(start, text.end(), isOfWord);
        const auto end = std::find_if_not(start, text.end(), isOfWord);
        words.emplace(start, end);
        start = end;
    }
    return words;
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
    const std::string text = textOf(projectDirectory / "docs/architecture.md");
    const std::regex named("`([^` ]+)`"); // What has a blank is a command line.
    std::size_t count = 0;
    for (std::sregex_iterator match(text.begin(), text.end(), named); match != std::sregex_iterator(); ++match) {
        ++count;
        EXPECT_TRUE(isOf(all, words, (*match)[1])) << (*match)[1];
    }
    EXPECT_GT(count, 50U);
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
