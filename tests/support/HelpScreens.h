// The help screens of all commands: as the binary prints them, and as tests/golden/help.txt holds them.
#pragma once

#include <string>
#include <vector>

namespace testsupport {

struct HelpScreen {
    std::string command; ///< Its words, such as "orvane-cli context create".
    std::string text;

    /// The line behind "USAGE: ".
    std::string usage() const;
    /// The words of the commands in the list of subcommands, the default one alone if `onlyDefault`.
    std::vector<std::string> subcommands(bool onlyDefault = false) const;
};

/// Asks the binary for the root's screen and for those of all commands it leads to, depth first.
std::vector<HelpScreen> printedHelpScreens();

/// Those of the golden file, in its order. Empty when there is no such file.
const std::vector<HelpScreen>& goldenHelpScreens();

/// `screens` as the golden file holds them.
std::string asGolden(const std::vector<HelpScreen>& screens);

/// The golden screen of the command that a command line runs: named by its leading words, then down the defaults.
const HelpScreen& screenOfCommandRunBy(const std::vector<std::string>& arguments);

} // namespace testsupport
