#include "support/HelpScreens.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "support/ToolRunner.h"

namespace testsupport {

namespace {

const std::string root = "orvane-cli";
const std::string prompt = "$ ";
const std::string promptEnd = " --help";

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

void addPrinted(std::vector<HelpScreen>& screens, const std::string& command, std::vector<std::string> words) {
    std::vector<std::string> arguments = words;
    arguments.emplace_back("--help");
    const ToolResult result = runTool(arguments);
    EXPECT_EQ(result.err, "") << command;
    EXPECT_EQ(result.status, 0) << command;
    const HelpScreen screen{command, result.out};
    screens.push_back(screen);
    for (const std::string& word : screen.subcommands()) {
        words.push_back(word);
        addPrinted(screens, command + " " + word, words);
        words.pop_back();
    }
}

std::vector<HelpScreen> readGolden() {
    std::vector<HelpScreen> screens;
    std::ifstream file(HELP_SCREENS_FILE);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(prompt)) {
            screens.push_back({line.substr(prompt.size(), line.size() - prompt.size() - promptEnd.size()), ""});
        } else if (!screens.empty()) {
            screens.back().text += line + "\n";
        }
    }
    return screens;
}

const HelpScreen* findGolden(const std::string& command) {
    const auto& screens = goldenHelpScreens();
    const auto found = std::ranges::find(screens, command, &HelpScreen::command);
    return found == screens.end() ? nullptr : &*found;
}

const HelpScreen& goldenScreen(const std::string& command) {
    const HelpScreen* screen = findGolden(command);
    if (screen == nullptr) {
        throw std::runtime_error(HELP_SCREENS_FILE " has no screen of " + command);
    }
    return *screen;
}

} // namespace

std::string HelpScreen::usage() const {
    for (const std::string& line : linesOf(text)) {
        if (line.starts_with("USAGE: ")) {
            return line.substr(7);
        }
    }
    return "";
}

std::vector<std::string> HelpScreen::subcommands(bool onlyDefault) const {
    std::vector<std::string> words;
    bool isInList = false;
    for (const std::string& line : linesOf(text)) {
        // A row of the list begins in the third column; what was wrapped stands further to the right.
        if (isInList && line.size() > 2 && line[2] != ' ') {
            const std::string word = line.substr(2, line.find(' ', 2) - 2);
            if (!onlyDefault || line.starts_with("  " + word + " (default)")) {
                words.push_back(word);
            }
        }
        isInList = line == "SUBCOMMANDS:" || (isInList && !line.empty());
    }
    return words;
}

std::vector<HelpScreen> printedHelpScreens() {
    std::vector<HelpScreen> screens;
    addPrinted(screens, root, {});
    return screens;
}

const std::vector<HelpScreen>& goldenHelpScreens() {
    static const std::vector<HelpScreen> screens = readGolden();
    return screens;
}

std::string asGolden(const std::vector<HelpScreen>& screens) {
    std::string text;
    for (const HelpScreen& screen : screens) {
        text.append(prompt).append(screen.command).append(promptEnd).append("\n").append(screen.text);
    }
    return text;
}

const HelpScreen& screenOfCommandRunBy(const std::vector<std::string>& arguments) {
    std::string command = root;
    for (const std::string& argument : arguments) {
        if (findGolden(command + " " + argument) == nullptr) {
            break;
        }
        command += " " + argument;
    }
    for (auto next = goldenScreen(command).subcommands(true); !next.empty();) {
        command += " " + next.front();
        next = goldenScreen(command).subcommands(true);
    }
    return goldenScreen(command);
}

} // namespace testsupport
