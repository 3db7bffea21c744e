// A table whose columns stand straight for any reader that expands tabs at the same width.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orvane {

struct TableCell {
    std::string text;
    std::string_view style; ///< The cell's ANSI code; empty for none.
};

/// The rows with real tabs between their cells and a line feed behind each row. The first row fixes the number of
/// columns. Line ends and tabs inside a cell become blanks; the styles show only on a terminal. `tabWidth` is in
/// characters.
std::string renderTabTable(std::vector<std::vector<TableCell>> rows, std::size_t tabWidth);

} // namespace orvane
