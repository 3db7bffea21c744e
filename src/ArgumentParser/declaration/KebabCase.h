// Camel case to words in lower case between hyphens, made by the compiler.
#pragma once

#include <cstddef>
#include <string_view>

namespace argumentparser {

/// An ASCII identifier of `size` characters in kebab case: "CheckIn" becomes "check-in", "myURLProperty"
/// "my-url-property".
template <std::size_t size>
class KebabCase {
public:
    explicit constexpr KebabCase(std::string_view identifier) {
        bool separateOnUppercase = true;
        for (std::size_t i = 0; i < identifier.size(); ++i) {
            const char character = identifier[i];
            if (isUppercase(character)) {
                if (separateOnUppercase && length_ > 0) {
                    text_[length_++] = '-';
                }
                // In a run of capitals, the last one belongs to the word that follows.
                separateOnUppercase =
                    i + 2 < identifier.size() && isUppercase(identifier[i + 1]) && isLowercase(identifier[i + 2]);
                text_[length_++] = static_cast<char>(character - 'A' + 'a');
            } else {
                separateOnUppercase = character != '-';
                text_[length_++] = character;
            }
        }
    }

    constexpr std::string_view text() const { return {text_, length_}; }

private:
    static constexpr bool isUppercase(char character) { return character >= 'A' && character <= 'Z'; }
    static constexpr bool isLowercase(char character) { return character >= 'a' && character <= 'z'; }

    char text_[2 * size + 1] = {};
    std::size_t length_ = 0;
};

} // namespace argumentparser
