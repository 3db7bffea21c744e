#include "shell/TabTable.h"

#include <algorithm>

#include "core/output/SingleLine.h"
#include "platform/text/Text.h"

namespace orvane {

namespace {

/// Where each column but the last ends.
std::vector<std::size_t> tabStops(const TableRows& rows, std::size_t tabWidth) {
    std::vector<std::size_t> stops;
    std::size_t stop = 0;
    for (std::size_t column = 0; column + 1 < rows.row(0).size(); ++column) {
        std::size_t width = 0;
        for (std::size_t index = 0; index < rows.count(); ++index) {
            const TableRows::Row row = rows.row(index);
            width = std::max<std::size_t>(width, column < row.size() ? row[column].width : 0);
        }
        stop = ((stop + width) / tabWidth + 1) * tabWidth;
        stops.push_back(stop);
    }
    return stops;
}

/// What the bytes of a text tell about it.
struct Bytes {
    bool areOneLine; ///< Nothing has to be trimmed or folded. A letter beyond ASCII at an end may be white space.
    bool areAscii;
};

Bytes inspected(std::string_view text) {
    const auto isVisible = [](char byte) { return byte > ' ' && byte <= '~'; };
    unsigned char control = 0;
    unsigned char all = 0;
    for (const char byte : text) {
        control |= static_cast<unsigned char>(static_cast<unsigned char>(byte) < ' ');
        all |= static_cast<unsigned char>(byte);
    }
    const bool hasPlainEnds = text.empty() || (isVisible(text.front()) && isVisible(text.back()));
    return {.areOneLine = hasPlainEnds && control == 0, .areAscii = all < 0x80};
}

} // namespace

std::string_view TableRows::keep(std::string_view text) {
    char* const copy = static_cast<char*>(kept_.allocate(text.size(), 1));
    std::copy(text.begin(), text.end(), copy);
    return {copy, text.size()};
}

void TableRows::add(std::string_view text, Style style, std::size_t limit) {
    const Bytes bytes = inspected(text);
    const bool isAsItShows = bytes.areOneLine && text.size() <= limit && !stdoutIsTerminal();
    if (!isAsItShows) {
        text = keep(shownLine(singleLine(text, limit)));
    }
    const std::size_t width = isAsItShows && bytes.areAscii ? text.size() : platform::characterCount(text);
    cells_.push_back({text, static_cast<std::uint32_t>(width), style});
    textSize_ += text.size();
}

std::string renderTabTable(const TableRows& rows, std::size_t tabWidth) {
    std::string table;
    if (rows.count() == 0 || rows.row(0).empty()) {
        return table;
    }
    const std::vector<std::size_t> stops = tabStops(rows, tabWidth);
    const bool isStyled = stdoutIsTerminal();
    table.reserve(rows.textSize() * 2); // with room for tabs; what is not used is never touched
    for (std::size_t index = 0; index < rows.count(); ++index) {
        const TableRows::Row row = rows.row(index);
        std::size_t position = 0;
        for (std::size_t column = 0; column < row.size(); ++column) {
            const TableRows::Cell& cell = row[column];
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
