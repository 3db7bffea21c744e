// The path of a file as a value of the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ArgumentParser/CompletionKind.h"

namespace argumentparser {

/// A path as it was given: a file's name need not be valid UTF-8, and is opened byte for byte.
struct FilePath {
    std::string bytes;

    static std::optional<FilePath> fromArgument(std::string_view text) { return FilePath{std::string(text)}; }
    static CompletionKind defaultCompletionKind() { return {CompletionKind::File()}; }
    const std::string& text() const { return bytes; }
};

} // namespace argumentparser
