// Reading a number with a fraction.
#pragma once

#include <optional>
#include <string_view>

namespace argumentparser {

/// The whole of `text` as a decimal number with an optional sign, rounded to the nearest `Number` (float or double),
/// which may be zero. Nothing for any other text, infinities included, and for a number that is too large.
template <class Number>
std::optional<Number> floatingPoint(std::string_view text);

} // namespace argumentparser
