// How far apart two texts are.
#pragma once

#include <cstddef>
#include <string_view>

namespace argumentparser {

/// The least number of characters to insert, delete or substitute that turns one text into the other.
std::size_t editDistance(std::string_view first, std::string_view second);

} // namespace argumentparser
