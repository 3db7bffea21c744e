#include "platform/json/Json.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "platform/text/ByteScan.h"

namespace platform {

namespace {

constexpr auto needsEscape = [](auto byte) { return (byte < 0x20) | (byte == '"') | (byte == '\\'); };

void appendEscape(std::string& json, char byte) {
    constexpr std::string_view bytes = "\"\\\b\f\n\r\t";
    constexpr std::string_view letters = "\"\\bfnrt";
    constexpr std::string_view digits = "0123456789abcdef";
    if (const std::size_t index = bytes.find(byte); index != std::string_view::npos) {
        json += {'\\', letters[index]};
    } else {
        json += {'\\',
                 'u',
                 '0',
                 '0',
                 digits[static_cast<std::size_t>(byte) >> 4U],
                 digits[static_cast<std::size_t>(byte) & 0xFU]};
    }
}

/// The value 0.d1d2d3… * 10^exponent of a number without its sign, d1 and the last digit not being zeros; zero has no
/// digits.
struct Decimal {
    std::string digits;
    long exponent = 0;

    bool operator==(const Decimal&) const = default;
};

/// `number` has a JSON number's form. Nothing for an exponent beyond all reason.
std::optional<Decimal> decimalOf(std::string_view number) {
    Decimal decimal;
    const std::size_t exponentMark = std::min(number.find_first_of("eE"), number.size());
    bool isFraction = false;
    for (const char byte : number.substr(0, exponentMark)) {
        if (byte == '.') {
            isFraction = true;
        } else if (byte != '-') {
            const bool isLeadingZero = byte == '0' && decimal.digits.empty();
            decimal.exponent += (isFraction ? 0 : 1) - (isLeadingZero ? 1 : 0);
            if (!isLeadingZero) {
                decimal.digits += byte;
            }
        }
    }
    decimal.digits.erase(decimal.digits.find_last_not_of('0') + 1);
    if (exponentMark < number.size()) {
        std::string_view text = number.substr(exponentMark + 1);
        text.remove_prefix(text.starts_with('+') ? 1 : 0);
        int exponent = 0;
        if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec != std::errc()) {
            return std::nullopt;
        }
        decimal.exponent += exponent;
    }
    if (decimal.digits.empty()) {
        decimal.exponent = 1;
    }
    return decimal;
}

/// Whether the double next to `number` stands for that number when it is written in its shortest form.
bool fitsDouble(std::string_view number, const Decimal& decimal) {
    double value = 0;
    if (std::from_chars(number.data(), number.data() + number.size(), value).ec != std::errc()) {
        return false;
    }
    char shortest[32];
    const auto end = std::to_chars(shortest, shortest + sizeof shortest, value).ptr;
    return decimalOf({shortest, end}) == decimal;
}

std::string writtenOut(const Decimal& decimal) {
    constexpr long plainLimit = 21;
    const std::string& digits = decimal.digits;
    const long exponent = decimal.exponent;
    const auto count = static_cast<long>(digits.size());
    const long plainCount = exponent > 0 ? std::max(count, exponent) : 1 + count - exponent;
    if (plainCount > plainLimit) {
        const std::string fraction = count > 1 ? "." + digits.substr(1) : "";
        return digits.front() + fraction + (exponent > 0 ? "e+" : "e") + std::to_string(exponent - 1);
    }
    if (exponent <= 0) {
        return "0." + std::string(static_cast<std::size_t>(-exponent), '0') + digits;
    }
    if (exponent >= count) {
        return digits + std::string(static_cast<std::size_t>(exponent - count), '0');
    }
    const auto point = static_cast<std::size_t>(exponent);
    return digits.substr(0, point) + "." + digits.substr(point);
}

} // namespace

void appendJsonQuoted(std::string& json, std::string_view text) {
    // Room for twice the text is hardly ever exceeded, and what of it is not written to takes no memory.
    json.reserve(json.size() + 2 * text.size() + 2);
    json += '"';
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = findByte(text, start, needsEscape);
        json.append(text, start, end - start);
        if (end < text.size()) {
            appendEscape(json, text[end]);
        }
        start = end + 1;
    }
    json += '"';
}

std::string prettyJsonNumber(std::string_view number) {
    // An integer of up to 64 bits is in its shortest form already, and a longer one stays as it is.
    if (number.find_first_of(".eE") == std::string_view::npos) {
        return std::string(number);
    }
    const std::optional<Decimal> decimal = decimalOf(number);
    if (!decimal || !fitsDouble(number, *decimal)) {
        return std::string(number);
    }
    return (number.starts_with('-') ? "-" : "") + writtenOut(*decimal);
}

} // namespace platform
