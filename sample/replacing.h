// Replacing parts of a text that are named by their exact content.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sample {

// Both throw RequestError when what is to be replaced does not occur, or occurs too often.

std::string replaceText(std::string_view text, std::string_view from, std::string_view to, bool everywhere);

/// Replaces a block of whole lines. Without new lines the block goes together with one of the line feeds around it.
std::string replaceLines(std::string_view text, const std::vector<std::string>& from,
                         const std::vector<std::string>& to);

} // namespace sample
