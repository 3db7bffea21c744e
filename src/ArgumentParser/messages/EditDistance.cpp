#include "ArgumentParser/messages/EditDistance.h"

#include <algorithm>
#include <numeric>
#include <vector>

#include "platform/text/Text.h"

namespace argumentparser {

std::size_t editDistance(std::string_view first, std::string_view second) {
    const auto left = platform::splitCharacters(first);
    const auto right = platform::splitCharacters(second);
    // The table's current row: the distances from the part of `left` seen so far to each beginning of `right`.
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t substituted = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({substituted, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

} // namespace argumentparser
