#include "shell/TabTable.h"

#include <algorithm>

#include "core/Rendering.h"
#include "platform/Text.h"

namespace orvane {

namespace {

std::string cleaned(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char byte) { return byte == '\n' || byte == '\r' || byte == '\t'; }, ' ');
    return std::string(platform::trimmed(text));
}

/// Where each column but the last ends.
std::vector<std::size_t> tabStops(const std::vector<std::vector<TableCell>>& rows, std::size_t tabWidth) {
    std::vector<std::size_t> stops;
    std::size_t stop = 0;
    for (std::size_t column = 0; column + 1 < rows.front().size(); ++column) {
        std::size_t width = 0;
        for (const auto& row : rows) {
            if (column < row.size()) {
                width = std::max(width, platform::characterCount(row[column].text));
            }
        }
        stop = ((stop + width) / tabWidth + 1) * tabWidth;
        stops.push_back(stop);
    }
    return stops;
}

} // namespace

std::string renderTabTable(std::vector<std::vector<TableCell>> rows, std::size_t tabWidth) {
    if (rows.empty() || rows.front().empty()) {
        return {};
    }
    for (auto& row : rows) {
        for (TableCell& cell : row) {
            cell.text = cleaned(std::move(cell.text));
        }
    }
    const std::vector<std::size_t> stops = tabStops(rows, tabWidth);
    std::string table;
    for (const auto& row : rows) {
        std::size_t position = 0;
        for (std::size_t column = 0; column < row.size(); ++column) {
            table += ansiStyled(row[column].text, row[column].style);
            position += platform::characterCount(row[column].text);
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
