// JSON, read and written again, beside another reader.
#include "platform/json/Json.h"

#include <cmath>
#include <memory>
#include <optional>
#include <stdexcept>

#include <boost/json.hpp>

#include "Target.h"
#include "platform/text/TerminalText.h"
#include "platform/text/Text.h"

namespace json = boost::json;
using platform::JsonDocument;

namespace {

/// The value as it is written, or what is wrong.
struct Reading {
    std::optional<std::string> pretty;
    std::string problem;

    bool operator==(const Reading&) const = default;
};

/// Of a copy that begins `offset` bytes behind an aligned address and ends with its memory.
Reading read(std::string_view text, std::size_t offset = 0) {
    const std::unique_ptr<char[]> memory(new char[offset + text.size()]);
    std::copy(text.begin(), text.end(), memory.get() + offset);
    const std::string_view source(memory.get() + offset, text.size());
    try {
        const JsonDocument document = JsonDocument::parseOrThrow(source);
        return {document.root().prettyText(), {}};
    } catch (const std::runtime_error& error) {
        return {std::nullopt, error.what()};
    }
}

/// What the other reader makes of a text. It knows no exponents beyond all reason.
struct OtherReading {
    std::optional<json::value> value;
    json::error_code error;

    bool isBeyondOther() const { return error == json::error::exponent_overflow; }
};

OtherReading readByOther(std::string_view text) {
    OtherReading reading;
    json::parse_options options;
    options.max_depth = 512;
    json::value value = json::parse({text.data(), text.size()}, reading.error, {}, options);
    if (!reading.error) {
        reading.value = std::move(value);
    }
    return reading;
}

/// The other reader rounds numbers, and tells those apart that are written with and without a fraction.
bool isSame(const json::value& one, const json::value& other) {
    if (one.is_number() && other.is_number()) {
        const auto a = one.to_number<double>();
        const auto b = other.to_number<double>();
        return a == b || std::abs(a - b) <= 1e-12 * std::abs(a);
    }
    if (one.is_array() && other.is_array()) {
        const json::array& a = one.get_array();
        const json::array& b = other.get_array();
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), isSame);
    }
    if (one.is_object() && other.is_object()) {
        const json::object& a = one.get_object();
        const json::object& b = other.get_object();
        return a.size() == b.size() && std::all_of(a.begin(), a.end(), [&](const auto& member) {
                   const json::value* const value = b.if_contains(member.key());
                   return value != nullptr && isSame(member.value(), *value);
               });
    }
    return one == other;
}

void checkDocument(std::string_view text) {
    const Reading reading = read(text);
    for (const std::size_t offset : {1U, 7U, 15U}) {
        fuzz::require(read(text, offset) == reading, "what is read does not depend on where it lies");
    }
    const OtherReading other = readByOther(text);
    if (!reading.pretty) {
        const bool isBeyondRange = reading.problem.find("too large") != std::string::npos ||
                                   reading.problem.find("too deeply") != std::string::npos;
        fuzz::require(!other.value || isBeyondRange, "what is refused is not JSON");
        return;
    }
    fuzz::require(other.value || other.isBeyondOther(), "what is read is JSON");
    const std::string& pretty = *reading.pretty;
    if (other.value) {
        const OtherReading again = readByOther(pretty);
        fuzz::require(again.value && isSame(*other.value, *again.value), "what is written has the value that was read");
    }
    fuzz::requireSame(read(pretty).pretty.value_or(""), pretty, "what is written is written again");
    fuzz::requireSame(read(platform::terminalJson(text)).pretty.value_or(""), pretty,
                      "JSON for a terminal has the same value");
}

void checkQuoting(std::string_view text) {
    std::string object = "{\"\":";
    platform::appendJsonQuoted(object, text);
    object += "}";
    const auto document = JsonDocument::parseObject(object);
    fuzz::require(document.has_value(), "quoted UTF-8 is JSON");
    fuzz::requireSame(document->object().text("").value_or("none"), text, "a quoted text reads as it was");
    std::string pieces;
    document->object().longText("")->forEachPiece([&](std::string_view piece) {
        fuzz::require(!piece.empty() && platform::isValidUtf8(piece), "a piece is whole UTF-8");
        pieces += piece;
    });
    fuzz::requireSame(pieces, text, "its pieces make up the text");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = fuzz::Input(data, size).rest();
    checkDocument(text);
    if (platform::isValidUtf8(text)) {
        checkQuoting(text);
    }
    return 0;
}
