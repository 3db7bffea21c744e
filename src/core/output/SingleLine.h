// Texts of several lines where there is room for one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace orvane {

/// `text` with one blank for each line feed, carriage return and tab.
std::string foldedLine(std::string_view text);

/// `text` folded, without white space at its ends, in at most `limit` characters, which end in "…" when some had to go.
std::string singleLine(std::string_view text, std::size_t limit = std::string_view::npos);

} // namespace orvane
