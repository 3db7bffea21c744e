// Text as people count it. A character is an extended grapheme cluster, so that widths, limits and distances do not
// depend on how a letter is encoded; CR LF is one character. All texts are UTF-8.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The number of characters.
std::size_t characterCount(std::string_view text);

/// The bytes of the first `count` characters; all of them when there are fewer.
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Every character as a piece of `text`.
std::vector<std::string_view> splitCharacters(std::string_view text);

/// Properties of a character, which its first scalar decides.
bool isUppercase(std::string_view character);
bool isLowercase(std::string_view character);
bool isAlphanumeric(std::string_view character);

std::string lowercased(std::string_view text);
std::string uppercased(std::string_view text);

/// The first letter of every word in upper case and the others in lower case; a word is a run without white
/// space.
std::string capitalized(std::string_view text);

/// `text` without the white space (line ends included) at its ends.
std::string_view trimmed(std::string_view text);
std::string_view trimmedAtEnd(std::string_view text);

bool isValidUtf8(std::string_view bytes);

/// How many of `bytes` stand before a character's sequence that their end may have cut in two.
std::size_t uncutLength(std::string_view bytes);

/// The length of the malformed sequence at the front of `bytes`, which counts as one character: the longest beginning
/// of a well-formed one, or else a byte.
std::size_t malformedLength(std::string_view bytes);

/// `bytes` with every malformed sequence replaced by U+FFFD.
std::string repairedUtf8(std::string_view bytes);

/// The whole of `text` as a decimal number in range, with an optional sign; nothing otherwise.
template <class Number>
std::optional<Number> parseNumber(std::string_view text);

/// The pieces of `text` between the occurrences of `separator`, empty ones included.
std::vector<std::string_view> split(std::string_view text, char separator);

/// `pieces` with `separator` between them.
std::string joined(const std::vector<std::string>& pieces, std::string_view separator);

} // namespace platform
