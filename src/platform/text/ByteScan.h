// Searching long texts for rare bytes.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace platform {

/// Bytes that are looked at together.
using ByteBlock = unsigned char __attribute__((vector_size(16)));

/// The position of the first byte of a block that is not zero; the block's size when there is none.
inline std::size_t findNonZero(ByteBlock block) {
    std::uint64_t halves[2];
    static_assert(sizeof halves == sizeof block);
    std::memcpy(halves, &block, sizeof block);
    const std::uint64_t half = halves[0] != 0 ? halves[0] : halves[1];
    const auto zeroBits = static_cast<std::size_t>(std::endian::native == std::endian::little ? std::countr_zero(half)
                                                                                              : std::countl_zero(half));
    return (halves[0] != 0 ? 0 : sizeof half) + zeroBits / 8;
}

/// The position of the first byte from `start` on for which `matches` answers true; the text's size when there is
/// none. `matches` takes an unsigned char or a whole block of them alike, and so combines what it compares by | and &.
template <class Matches>
std::size_t findByte(std::string_view text, std::size_t start, Matches matches) {
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
    const std::size_t size = text.size();
    for (; size - start >= sizeof(ByteBlock); start += sizeof(ByteBlock)) {
        ByteBlock block;
        std::memcpy(&block, bytes + start, sizeof block);
        if (const std::size_t found = findNonZero(ByteBlock(matches(block))); found < sizeof block) {
            return start + found;
        }
    }
    while (start < size && !matches(bytes[start])) {
        ++start;
    }
    return start;
}

} // namespace platform
