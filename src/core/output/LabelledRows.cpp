#include "core/output/LabelledRows.h"

#include <algorithm>

#include "platform/files/Streams.h"
#include "platform/text/Text.h"

namespace orvane {

std::string labelledRowsText(const std::vector<LabelledRow>& rows) {
    std::size_t width = 0;
    for (const LabelledRow& row : rows) {
        width = std::max(width, platform::characterCount(row.label));
    }
    std::string text;
    for (const LabelledRow& row : rows) {
        std::string label(row.label);
        label.append(width - platform::characterCount(row.label), ' ');
        text += ansiStyled(label, Style::dim) + "  " + ansiStyled(row.value, row.style) + "\n";
    }
    return text;
}

void printLabelledRows(const std::vector<LabelledRow>& rows) {
    platform::writeStandardOutput(rows.empty() ? "\n" : labelledRowsText(rows));
}

} // namespace orvane
