#include "library/Text.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <boost/algorithm/string/join.hpp>
#include <utf8proc.h>

namespace sample {

namespace {

std::string map(std::string_view text, int options) {
    utf8proc_uint8_t* mapped = nullptr;
    const utf8proc_ssize_t length =
        utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()), static_cast<utf8proc_ssize_t>(text.size()),
                     &mapped, static_cast<utf8proc_option_t>(options));
    const std::unique_ptr<utf8proc_uint8_t, decltype(&std::free)> owner(mapped, &std::free);
    if (length < 0 || !mapped) {
        return std::string(text);
    }
    return {reinterpret_cast<const char*>(mapped), static_cast<std::size_t>(length)};
}

} // namespace

std::string fold(std::string_view text) {
    return map(text, UTF8PROC_STABLE | UTF8PROC_COMPOSE | UTF8PROC_CASEFOLD);
}

std::string firstCharacters(std::string_view text, std::size_t count) {
    auto characters = words(map(text, UTF8PROC_CHARBOUND), "\xFF"); // That byte comes to stand in front of each.
    characters.resize(std::min(count, characters.size()));
    return boost::algorithm::join(characters, "");
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
