#include "shell/TabTable.h"

#include <algorithm>

#include "core/SingleLine.h"
#include "platform/Text.h"

namespace orvane {

namespace {

/// Where each column but the last ends.
std::vector<std::size_t> tabStops(const TableRows& rows, std::size_t tabWidth) {
    std::vector<std::size_t> stops;
    std::size_t stop = 0;
    for (std::size_t column = 0; column + 1 < rows.columnCount(0); ++column) {
        std::size_t width = 0;
        for (std::size_t row = 0; row < rows.count(); ++row) {
            width = std::max(width, column < rows.columnCount(row) ? rows.cell(row, column).width : 0);
        }
        stop = ((stop + width) / tabWidth + 1) * tabWidth;
        stops.push_back(stop);
    }
    return stops;
}

/// Whether nothing of `text` has to be trimmed, folded or written out, and each byte is a character: true of most
/// cells.
bool isPlain(std::string_view text) {
    unsigned char other = text.starts_with(' ') || text.ends_with(' ');
    for (const char byte : text) {
        other |= static_cast<unsigned char>(byte < ' ' || byte > '~');
    }
    return other == 0;
}

} // namespace

void TableRows::add(std::string_view text, Style style, std::size_t limit) {
    if (text.size() <= limit && isPlain(text)) {
        entries_.push_back({texts_.size(), text.size(), text.size(), style});
        texts_ += text;
        return;
    }
    const std::string line = shownLine(singleLine(text, limit));
    entries_.push_back({texts_.size(), line.size(), platform::characterCount(line), style});
    texts_ += line;
}

void TableRows::endRow() {
    rowEnds_.push_back(entries_.size());
}

TableRows::Cell TableRows::cell(std::size_t row, std::size_t column) const {
    const Entry& entry = entries_[rowStart(row) + column];
    return {std::string_view(texts_).substr(entry.start, entry.length), entry.width, entry.style};
}

std::string renderTabTable(const TableRows& rows, std::size_t tabWidth) {
    std::string table;
    if (rows.count() == 0 || rows.columnCount(0) == 0) {
        return table;
    }
    const std::vector<std::size_t> stops = tabStops(rows, tabWidth);
    const bool isStyled = stdoutIsTerminal();
    table.reserve(rows.textSize() * 2); // with room for tabs; what is not used is never touched
    for (std::size_t row = 0; row < rows.count(); ++row) {
        std::size_t position = 0;
        for (std::size_t column = 0; column < rows.columnCount(row); ++column) {
            const TableRows::Cell cell = rows.cell(row, column);
            if (isStyled) {
                table += ansiStyled(cell.text, cell.style);
            } else {
                table += cell.text;
            }
            position += cell.width;
            while (column < stops.size() && position < stops[column]) {
                table += '\t';
                position = (position / tabWidth + 1) * tabWidth;
            }
        }
        table += '\n';
    }
    return table;
}

} // namespace orvane
