#include "ArgumentParser/declaration/FloatingPoint.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string>

namespace argumentparser {

template <class Number>
std::optional<Number> floatingPoint(std::string_view text) {
    // from_chars knows no plus sign, but names for what is no number.
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    if (text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) {
        return std::nullopt;
    }
    Number number{};
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ptr != end || result.ec == std::errc::invalid_argument) {
        return std::nullopt;
    }
    if (result.ec == std::errc()) {
        return number;
    }
    // Out of range: what is too close to zero is rounded, what is too large is refused.
    const double nearest = std::strtod(std::string(text).c_str(), nullptr);
    return std::abs(nearest) < 1 ? std::optional(static_cast<Number>(nearest)) : std::nullopt;
}

template std::optional<float> floatingPoint(std::string_view);
template std::optional<double> floatingPoint(std::string_view);

} // namespace argumentparser
