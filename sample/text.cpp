#include "text.h"

#include <cstdlib>
#include <memory>

#include <utf8proc.h>

namespace sample {

bool isUtf8(std::string_view text) {
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
    auto left = static_cast<utf8proc_ssize_t>(text.size());
    while (left > 0) {
        utf8proc_int32_t codePoint = 0;
        const utf8proc_ssize_t length = utf8proc_iterate(bytes, left, &codePoint);
        if (length <= 0)
            return false;
        bytes += length;
        left -= length;
    }
    return true;
}

std::string fold(std::string_view text) {
    utf8proc_uint8_t* mapped = nullptr;
    const auto options = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_CASEFOLD);
    const utf8proc_ssize_t length = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                                 static_cast<utf8proc_ssize_t>(text.size()), &mapped, options);
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(mapped, &std::free);
    if (length < 0 || !mapped)
        return std::string(text);
    return {reinterpret_cast<const char*>(mapped), static_cast<std::size_t>(length)};
}

bool containsFolded(std::string_view text, std::string_view folded) {
    return fold(text).find(folded) != std::string::npos;
}

std::vector<std::string> words(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    std::vector<std::string> found;
    for (auto start = text.find_first_not_of(blanks); start != std::string_view::npos;) {
        const auto end = text.find_first_of(blanks, start);
        found.emplace_back(text.substr(start, end - start));
        start = text.find_first_not_of(blanks, end);
    }
    return found;
}

} // namespace sample
