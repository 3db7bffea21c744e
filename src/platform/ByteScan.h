// Searching long texts for rare bytes.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace platform {

/// The position of the first byte from `start` on for which `matches` answers true; the text's size when there is
/// none. Whole blocks are looked at together, which the compiler turns into vector operations as long as `matches`, of
/// an unsigned char, answers without branching.
template <class Matches>
std::size_t findByte(std::string_view text, std::size_t start, Matches matches) {
    constexpr std::size_t blockSize = 64;
    constexpr std::size_t nearby = 8;
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
    const std::size_t size = text.size();
    for (const std::size_t end = std::min(start + nearby, size); start < end; ++start) {
        if (matches(bytes[start])) {
            return start;
        }
    }
    for (; size - start >= blockSize; start += blockSize) {
        unsigned char found = 0;
        for (std::size_t i = 0; i < blockSize; ++i) {
            found |= static_cast<unsigned char>(matches(bytes[start + i]));
        }
        if (found != 0) {
            break;
        }
    }
    while (start < size && !matches(bytes[start])) {
        ++start;
    }
    return start;
}

} // namespace platform
