#include "Exchange.h"

#include <array>
#include <cstdint>
#include <cstdio>

#include <boost/json.hpp>
#include <utf8proc.h>

#include "library/Instant.h"

namespace sample {

namespace {

constexpr std::size_t screenful = 1600;

/// Control characters, the property Bidi_Control, and the separators of lines and paragraphs.
bool steersTerminal(std::int32_t scalar) {
    return scalar < 0x20 || (scalar >= 0x7F && scalar <= 0x9F) || scalar == 0x061C || scalar == 0x200E ||
           scalar == 0x200F || (scalar >= 0x2028 && scalar <= 0x202E) || (scalar >= 0x2066 && scalar <= 0x2069);
}

std::string escape(std::int32_t scalar) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(scalar));
    return text.data();
}

/// Takes the first character off `text` and gives it in a form that a terminal only shows.
std::string takeShown(std::string_view& text) {
    utf8proc_int32_t scalar = -1;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &scalar);
    const std::string_view character = text.substr(0, length > 0 ? static_cast<std::size_t>(length) : 1);
    text.remove_prefix(character.size());
    if (length <= 0) {
        return "\xEF\xBF\xBD";
    }
    return steersTerminal(scalar) ? escape(scalar) : std::string(character);
}

std::string shown(std::string_view text) {
    std::string all;
    while (!text.empty()) {
        all += takeShown(text);
    }
    return all;
}

/// "12,345 bytes".
std::string inBytes(std::size_t count) {
    std::string digits = std::to_string(count);
    for (std::size_t at = digits.size(); at > 3;) {
        at -= 3;
        digits.insert(at, 1, ',');
    }
    return digits + (count == 1 ? " byte" : " bytes");
}

/// A body's line, or nothing for an empty body.
std::string bodyLine(std::string_view body) {
    std::string line;
    std::string_view rest = body;
    while (!rest.empty() && line.size() < screenful) {
        line += takeShown(rest);
    }
    if (!rest.empty()) {
        line += " … " + inBytes(body.size()) + " in all";
    }
    return line.empty() ? line : line + "\n";
}

json::value textOrNull(std::string_view text) {
    return text.empty() ? json::value() : json::value(text);
}

} // namespace

std::string asBlock(const Exchange& exchange) {
    const std::string took = std::to_string(exchange.took.count()) + " ms\n";
    std::string block = "> " + shown(exchange.method) + " " + shown(exchange.target) + "\n" + bodyLine(exchange.body);
    if (const auto& response = exchange.response) {
        block += "< " + std::to_string(response->status) + " · " + inBytes(response->body.size()) + " · " + took +
                 bodyLine(response->body);
    } else {
        block += "< closed without an answer · " + took;
    }
    return block + "\n";
}

std::string asJsonLine(const Exchange& exchange) {
    json::object record{
        {"time", isoTimestamp(now())},           {"method", exchange.method}, {"target", exchange.target},
        {"body", textOrNull(exchange.body)},     {"status", nullptr},         {"size", nullptr},
        {"milliseconds", exchange.took.count()}, {"answer", nullptr}};
    if (const auto& response = exchange.response) {
        record["status"] = response->status;
        record["size"] = response->body.size();
        record["answer"] = response->body;
    }
    return shown(json::serialize(record)) + "\n";
}

} // namespace sample
