// Comparing texts the way people read them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sample {

/// The text with case and the ways to write an accent evened out, for comparing and for sorting.
std::string fold(std::string_view text);

/// Whether `text` holds `folded`, a text that has been through `fold`, in any case.
bool containsFolded(std::string_view text, std::string_view folded);

/// The pieces of the text between any of the separators, without the empty ones.
std::vector<std::string> words(std::string_view text, std::string_view separators = " \t\r\n");

/// The pieces of the text between the separators. A separator at the very end closes a piece and begins none.
std::vector<std::string_view> split(std::string_view text, std::string_view separator = "\n");

/// The first so many characters, as people count them.
std::string firstCharacters(std::string_view text, std::size_t count);

std::string joinLines(std::span<const std::string_view> lines);

} // namespace sample
