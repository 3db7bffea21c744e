// Laying out text on a screen of a given width. Widths are in characters.
#pragma once

#include <string>
#include <string_view>

namespace argumentparser {

/// The width of the label of a usage, "Usage: " or "USAGE: ".
inline constexpr int usageIndent = 7;

/// `text` broken at spaces into lines of at most `columns`, each non-empty one indented by `indent` spaces. A word that
/// is too long makes a long line. Empty when nothing fits beside the indent.
std::string wrapped(std::string_view text, int columns, int indent);

/// `text` with every line but the first indented by `indent` spaces.
std::string hangingIndented(std::string_view text, int indent);

/// The screen's width: the environment variable COLUMNS, else the terminal's width, else 80.
int screenWidth();

} // namespace argumentparser
