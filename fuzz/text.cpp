// Texts of any bytes: their characters, their repair, and their form for a terminal.
#include "platform/text/Text.h"

#include "Target.h"
#include "platform/text/TerminalText.h"

using namespace platform;

namespace {

/// The scalar at the front of valid UTF-8, which loses it.
char32_t takeScalar(std::string_view& text) {
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t scalar = lead & (length == 1 ? 0x7FU : 0xFFU >> (length + 1));
    for (const char byte : text.substr(1, length - 1)) {
        scalar = scalar << 6U | (static_cast<unsigned char>(byte) & 0x3FU);
    }
    text.remove_prefix(length);
    return scalar;
}

bool isHarmless(std::string_view text, std::u32string_view allowedControls) {
    while (!text.empty()) {
        const char32_t scalar = takeScalar(text);
        const bool isControl = scalar < 0x20 || (scalar >= 0x7F && scalar < 0xA0);
        const bool steersDirection = scalar == 0x61C || scalar == 0x200E || scalar == 0x200F ||
                                     (scalar >= 0x2028 && scalar <= 0x202E) || (scalar >= 0x2066 && scalar <= 0x2069);
        if (steersDirection || (isControl && allowedControls.find(scalar) == std::u32string_view::npos)) {
            return false;
        }
    }
    return true;
}

void checkTerminal(std::string_view text, std::string (*shown)(std::string_view), std::u32string_view allowed) {
    const std::string once = shown(text);
    fuzz::require(isValidUtf8(once), "what is shown is UTF-8");
    fuzz::require(isHarmless(once, allowed), "what is shown steers no terminal");
    fuzz::requireSame(shown(once), once, "what is shown is shown as it is");
    fuzz::require(once == text || !isValidUtf8(text) || !isHarmless(text, allowed), "what is harmless stays");
}

void checkCharacters(std::string_view text) {
    const auto characters = splitCharacters(text);
    fuzz::require(characterCount(text) == characters.size(), "characters are counted as they are split");
    std::size_t length = 0;
    for (std::size_t count = 0; count < characters.size(); ++count) {
        fuzz::require(firstCharacters(text, count).size() == length, "the first characters are those of the split");
        fuzz::require(characters[count].data() == text.data() + length && !characters[count].empty(), "none is lost");
        length += characters[count].size();
    }
    fuzz::require(length == text.size() && firstCharacters(text, text.size()) == text, "all of them are the text");
}

void checkUtf8(std::string_view text) {
    const std::string repaired = repairedUtf8(text);
    fuzz::require(isValidUtf8(repaired), "what is repaired is valid");
    fuzz::require(isValidUtf8(text) == (repaired == text), "what is valid needs no repair");
    for (const std::string& changed : {lowercased(repaired), uppercased(repaired), capitalized(repaired)}) {
        fuzz::require(isValidUtf8(changed), "another case is valid too");
    }
    for (std::size_t size = 0; size <= repaired.size(); ++size) {
        const std::string_view start(repaired.data(), size);
        const std::size_t uncut = uncutLength(start);
        fuzz::require(uncut <= size && size - uncut < 4 && isValidUtf8(start.substr(0, uncut)),
                      "nothing is cut in two");
        fuzz::require(uncut == size || !isValidUtf8(start), "what is whole is not cut");
    }
}

void checkTrimming(std::string_view text) {
    const std::string_view once = trimmed(text);
    fuzz::require(text.find(once) != std::string_view::npos && trimmed(once) == once, "a trimmed text stays");
    fuzz::require(text.starts_with(trimmedAtEnd(text)), "trimming at the end leaves the start");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Each beginning is looked at.
    const std::string_view text = fuzz::Input(data, std::min<std::size_t>(size, 300)).rest();
    checkTerminal(text, terminalText, U"\n\t");
    checkTerminal(text, terminalLine, U"");
    checkCharacters(text);
    checkUtf8(text);
    checkTrimming(text);
    return 0;
}
