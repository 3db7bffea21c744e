// What identifies a declared input within its command.
#pragma once

#include <string_view>
#include <vector>

namespace argumentparser {

/// The key that an input is declared with, and those of the option groups around it. Texts are static.
struct InputKey {
    std::string_view name;
    std::vector<std::string_view> path = {};

    bool operator==(const InputKey&) const = default;
};

} // namespace argumentparser
