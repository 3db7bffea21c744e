#include "text.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <utf8proc.h>

namespace sample {

std::string fold(std::string_view text) {
    utf8proc_uint8_t* mapped = nullptr;
    const auto options = static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_CASEFOLD);
    const utf8proc_ssize_t length = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                                 static_cast<utf8proc_ssize_t>(text.size()), &mapped, options);
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(mapped, &std::free);
    if (length < 0 || !mapped) {
        return std::string(text);
    }
    return {reinterpret_cast<const char*>(mapped), static_cast<std::size_t>(length)};
}

bool containsFolded(std::string_view text, std::string_view folded) {
    return fold(text).find(folded) != std::string::npos;
}

std::vector<std::string> words(std::string_view text, std::string_view separators) {
    std::vector<std::string> found;
    for (auto start = text.find_first_not_of(separators); start != std::string_view::npos;) {
        const auto end = text.find_first_of(separators, start);
        found.emplace_back(text.substr(start, end - start));
        start = text.find_first_not_of(separators, end);
    }
    return found;
}

std::vector<std::string_view> split(std::string_view text, std::string_view separator) {
    std::vector<std::string_view> pieces;
    for (std::size_t start = 0; start < text.size(); start += pieces.back().size() + separator.size()) {
        pieces.push_back(text.substr(start, text.find(separator, start) - start));
    }
    return pieces;
}

std::string joinLines(std::span<const std::string_view> lines) {
    std::string joined;
    for (const std::string_view line : lines) {
        joined.append(line).push_back('\n');
    }
    return joined.substr(0, joined.empty() ? 0 : joined.size() - 1);
}

} // namespace sample
