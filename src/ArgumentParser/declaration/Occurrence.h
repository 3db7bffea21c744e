// One appearance of an input on the command line.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "ArgumentParser/declaration/Name.h"

namespace argumentparser {

/// A position on the command line: that of a text and, inside a short group such as "-abc", of a character of it.
struct ArgumentIndex {
    std::size_t inputIndex = 0;
    std::optional<std::size_t> subIndex = {}; ///< Nothing for the complete text.

    bool isComplete() const { return !subIndex; }
};

/// Texts are views of the command line as it was given, which need not be valid UTF-8.
struct Occurrence {
    std::string_view originalText; ///< The text that holds the name, or the value of a positional.
    std::optional<std::size_t> subIndex = {};
    const Name* name = nullptr; ///< As it was used; none for a positional.
    std::string_view value = {};
};

} // namespace argumentparser
