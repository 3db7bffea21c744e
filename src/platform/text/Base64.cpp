#include "platform/text/Base64.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace platform {

namespace {

constexpr char digits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// The four digits of up to three bytes; where one is missing, a digit of zero bits.
void encodeGroup(char* text, unsigned first, unsigned second, unsigned third) {
    text[0] = digits[first >> 2U];
    text[1] = digits[(first << 4U | second >> 4U) & 63U];
    text[2] = digits[(second << 2U | third >> 6U) & 63U];
    text[3] = digits[third & 63U];
}

} // namespace

void appendBase64(std::string& text, std::string_view bytes) {
    constexpr std::size_t groupsAtOnce = 4096;
    constexpr std::size_t roomToGoOn = 1024;
    // Through a buffer that stays in the cache: a text made larger to be encoded into is written to twice.
    std::array<char, 4 * groupsAtOnce> buffer;
    text.reserve(text.size() + (bytes.size() + 2) / 3 * 4 + roomToGoOn);
    const auto* source = reinterpret_cast<const unsigned char*>(bytes.data());
    for (std::size_t left = bytes.size() / 3; left > 0;) {
        const std::size_t count = std::min(left, groupsAtOnce);
        for (std::size_t i = 0; i < count; ++i) {
            encodeGroup(&buffer[4 * i], source[3 * i], source[3 * i + 1], source[3 * i + 2]);
        }
        text.append(buffer.data(), 4 * count);
        source += 3 * count;
        left -= count;
    }
    const std::size_t rest = bytes.size() % 3;
    if (rest > 0) {
        encodeGroup(buffer.data(), source[0], rest == 2 ? source[1] : 0, 0);
        text.append(buffer.data(), rest + 1).append(3 - rest, '=');
    }
}

} // namespace platform
