// How text looks at a terminal. What others wrote is made harmless on the way: a terminal shows it and never obeys it.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

enum class Style { plain, bold, dim, red, green, yellow, magenta, cyan, boldYellow };

/// Whether standard output is a terminal, asked once. Colour depends on nothing else.
bool stdoutIsTerminal();

/// `text` between the escape sequences of `style`.
std::string withStyle(std::string_view text, Style style);

/// `shownLine` in a style, which only a terminal gets.
std::string ansiStyled(std::string_view text, Style style);

/// `text`, a piece of a line, for standard output: folded, so that nothing in it can pass for a line of its own, and
/// harmless at a terminal. Whatever others wrote gets on a line through here.
std::string shownLine(std::string_view text);

/// `text`, whose line feeds and tabs are part of its layout, for standard output: harmless at a terminal, else as it
/// is.
std::string shownText(std::string_view text);

} // namespace orvane
