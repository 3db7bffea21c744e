// Facts as rows of a label and a value.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/output/Style.h"

namespace orvane {

struct LabelledRow {
    std::string_view label;
    std::string value;
    Style style = Style::plain; ///< Of the value.
};

/// The rows with their values in one column behind dim labels, each on a line of its own.
std::string labelledRowsText(const std::vector<LabelledRow>& rows);

/// Prints the rows; an empty line when there are none.
void printLabelledRows(const std::vector<LabelledRow>& rows);

} // namespace orvane
