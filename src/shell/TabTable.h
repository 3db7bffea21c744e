// A table whose columns stand straight for any reader that expands tabs at the same width.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "core/Style.h"

namespace orvane {

/// The rows of a table, filled cell by cell. Line ends and tabs inside a cell become blanks; styles show only at a
/// terminal, where control characters are written out.
class TableRows {
public:
    struct Cell {
        std::string_view text;
        std::size_t width; ///< In characters.
        Style style;
    };

    /// Makes room for so many cells.
    void reserve(std::size_t cells) { entries_.reserve(cells); }
    /// A text of more than `limit` characters is cut.
    void add(std::string_view text, Style style = Style::plain, std::size_t limit = std::string_view::npos);
    void endRow();

    /// Of the texts of all cells, in bytes.
    std::size_t textSize() const { return texts_.size(); }
    std::size_t count() const { return rowEnds_.size(); }
    std::size_t columnCount(std::size_t row) const { return rowEnds_[row] - rowStart(row); }
    Cell cell(std::size_t row, std::size_t column) const;

private:
    struct Entry {
        std::size_t start;
        std::size_t length;
        std::size_t width;
        Style style;
    };

    std::size_t rowStart(std::size_t row) const { return row == 0 ? 0 : rowEnds_[row - 1]; }

    std::string texts_; ///< Of all cells, one behind the other.
    std::vector<Entry> entries_;
    std::vector<std::size_t> rowEnds_;
};

/// The rows with real tabs between their cells and a line feed behind each row. The first row fixes the number of
/// columns. `tabWidth` is in characters.
std::string renderTabTable(const TableRows& rows, std::size_t tabWidth);

} // namespace orvane
