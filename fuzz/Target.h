// What the targets share: their input as a text, taken apart from its front, and the laws they hold the code to.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace fuzz {

/// Ends the run unless `holds`: the fuzzer keeps the input then.
inline void require(bool holds, std::string_view law) {
    if (!holds) {
        std::fprintf(stderr, "Broken: %.*s\n", static_cast<int>(law.size()), law.data());
        std::abort();
    }
}

/// The same for two texts that must be equal.
inline void requireSame(std::string_view one, std::string_view other, std::string_view law) {
    if (one != other) {
        std::fprintf(stderr, "One:   %s\nOther: %s\n", std::string(one).c_str(), std::string(other).c_str());
    }
    require(one == other, law);
}

/// What is left of an input. Behind its end come zeros and empty texts.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(reinterpret_cast<const char*>(data), size) {}

    std::uint8_t byte() {
        const std::uint8_t value = rest_.empty() ? 0 : static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(std::min<std::size_t>(rest_.size(), 1));
        return value;
    }

    /// A number of `size` bytes, the most significant first.
    std::uint64_t number(int size) {
        std::uint64_t value = 0;
        while (size-- > 0) {
            value = value << 8U | byte();
        }
        return value;
    }

    /// What stands before the next line feed, which is left out.
    std::string_view line() {
        const std::string_view text = rest_.substr(0, rest_.find('\n'));
        rest_.remove_prefix(std::min(rest_.size(), text.size() + 1));
        return text;
    }

    std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
};

} // namespace fuzz
