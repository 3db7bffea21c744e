#include "replacing.h"

#include <algorithm>

#include "request.h"
#include "text.h"

namespace sample {

namespace {

constexpr std::size_t largestText = 4 * 1024 * 1024;

void requireMatch(std::size_t count, bool everywhere, const std::string& what) {
    if (count == 0) {
        throw RequestError(409, what + " does not occur in the context. It must match exactly.");
    }
    if (count > 1 && !everywhere) {
        throw RequestError(409, what + " occurs " + std::to_string(count) + " times in the context, not once.");
    }
}

} // namespace

std::string replaceText(std::string_view text, std::string_view from, std::string_view to, bool everywhere) {
    if (from.empty()) {
        throw RequestError(400, "old_string must not be empty.");
    }
    std::vector<std::size_t> matches;
    for (auto at = text.find(from); at != std::string_view::npos; at = text.find(from, at + from.size())) {
        matches.push_back(at);
    }
    requireMatch(matches.size(), everywhere, "old_string");
    if (text.size() - matches.size() * from.size() + matches.size() * to.size() > largestText) {
        throw RequestError(413, "The context would become too long.");
    }
    std::string replaced;
    std::size_t copied = 0;
    for (const std::size_t at : matches) {
        replaced.append(text.substr(copied, at - copied)).append(to);
        copied = at + from.size();
    }
    return replaced.append(text.substr(copied));
}

std::string replaceLines(std::string_view text, const std::vector<std::string>& from,
                         const std::vector<std::string>& to) {
    const auto isNoLine = [](const std::string& line) { return line.find('\n') != std::string::npos; };
    if (from.empty() || std::ranges::any_of(from, isNoLine) || std::ranges::any_of(to, isNoLine)) {
        throw RequestError(400, "old_lines and new_lines must be lists of single lines, and old_lines not empty.");
    }
    auto lines = splitLines(text);
    std::size_t count = 0;
    auto match = lines.end();
    for (auto at = std::ranges::search(lines, from).begin(); at != lines.end();
         at = std::search(at + 1, lines.end(), from.begin(), from.end())) {
        match = at;
        ++count;
    }
    requireMatch(count, false, "The block of old_lines");
    match = lines.erase(match, match + std::ssize(from));
    lines.insert(match, to.begin(), to.end());
    return joinLines(lines) + (text.ends_with('\n') && !lines.empty() ? "\n" : "");
}

} // namespace sample
