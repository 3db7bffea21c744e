// A table whose columns stand straight for any reader that expands tabs at the same width.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory_resource>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/output/Style.h"

namespace orvane {

/// The rows of a table, filled cell by cell. Line ends and tabs inside a cell become blanks; styles show only at a
/// terminal, where control characters are written out.
class TableRows {
public:
    struct Cell {
        std::string_view text;
        std::uint32_t width; ///< In characters.
        Style style;
    };
    using Row = std::span<const Cell>;

    /// Makes room for so many cells.
    void reserve(std::size_t cells) { cells_.reserve(cells); }
    /// A text of more than `limit` characters is cut. `text` must outlive the rows.
    void add(std::string_view text, Style style = Style::plain, std::size_t limit = std::string_view::npos);
    /// A copy of `text` that lasts as long as the rows.
    std::string_view keep(std::string_view text);
    void endRow() { rowEnds_.push_back(cells_.size()); }

    /// Of the texts of all cells, in bytes.
    std::size_t textSize() const { return textSize_; }
    std::size_t count() const { return rowEnds_.size(); }
    Row row(std::size_t index) const {
        const std::size_t start = index == 0 ? 0 : rowEnds_[index - 1];
        return Row(cells_).subspan(start, rowEnds_[index] - start);
    }

private:
    std::vector<Cell> cells_;
    std::vector<std::size_t> rowEnds_;
    std::pmr::monotonic_buffer_resource kept_;
    std::size_t textSize_ = 0;
};

/// The rows with real tabs between their cells and a line feed behind each row. The first row fixes the number of
/// columns. `tabWidth` is in characters.
std::string renderTabTable(const TableRows& rows, std::size_t tabWidth);

} // namespace orvane
