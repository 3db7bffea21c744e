// Texts between limits: wrapped, cut to one line, and compared. An input begins with two bytes, a width and an indent.
#include "ArgumentParser/help/TextLayout.h"
#include "ArgumentParser/messages/EditDistance.h"
#include "Target.h"
#include "core/output/SingleLine.h"
#include "platform/text/Text.h"

using namespace argumentparser;

namespace {

std::string withoutBlanks(std::string_view text) {
    std::string rest(text);
    std::erase_if(rest, [](char byte) { return byte == ' ' || byte == '\n'; });
    return rest;
}

void checkWrapping(std::string_view text, int columns, int indent) {
    const std::string lines = wrapped(text, columns, indent);
    if (columns <= indent) {
        fuzz::require(lines.empty(), "nothing fits beside the indent");
        return;
    }
    fuzz::requireSame(withoutBlanks(lines), withoutBlanks(text), "wrapping changes blanks alone");
    const std::string margin(static_cast<std::size_t>(indent), ' ');
    for (std::string_view line : platform::split(lines, '\n')) {
        fuzz::require(line.empty() || line.starts_with(margin), "a line is indented");
        line.remove_prefix(std::min(line.size(), margin.size()));
        const auto width = static_cast<std::size_t>(columns - indent);
        fuzz::require(platform::characterCount(line) <= width || line.find(' ') == std::string_view::npos,
                      "only a word makes a long line");
    }
}

void checkHangingIndent(std::string_view text, int indent) {
    const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
    const std::string indented = hangingIndented(text, indent);
    fuzz::require(indented.size() == text.size() + lines * static_cast<std::size_t>(indent), "each line is indented");
    fuzz::requireSame(withoutBlanks(indented), withoutBlanks(text), "indenting changes blanks alone");
}

void checkSingleLine(std::string_view text, std::size_t limit) {
    for (const std::string& line : {orvane::foldedLine(text), orvane::singleLine(text, limit)}) {
        fuzz::require(line.find_first_of("\r\n\t") == std::string::npos, "a line is one line");
    }
    const std::string line = orvane::singleLine(text, limit);
    fuzz::require(platform::characterCount(line) <= limit, "a line keeps its limit");
    fuzz::require(platform::trimmed(line) == line, "a line ends and begins with a word");
    fuzz::requireSame(orvane::singleLine(line, limit), line, "a line stays");
}

void checkDistance(std::string_view one, std::string_view other) {
    const std::size_t distance = editDistance(one, other);
    const std::size_t count = platform::characterCount(one);
    const std::size_t otherCount = platform::characterCount(other);
    fuzz::require(distance == editDistance(other, one), "a distance is the same both ways");
    fuzz::require(distance <= std::max(count, otherCount), "a distance is no longer than the longer text");
    fuzz::require(distance >= std::max(count, otherCount) - std::min(count, otherCount), "nor shorter than the rest");
    fuzz::require((distance == 0) == (one == other), "a distance tells texts apart");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const int columns = input.byte();
    const int indent = input.byte() % 32;
    const std::string_view text = input.rest();
    checkWrapping(text, columns, indent);
    checkHangingIndent(text, indent);
    checkSingleLine(text, static_cast<std::size_t>(columns) + 1);
    const std::string_view word = text.substr(0, 100);
    checkDistance(word.substr(0, word.size() / 2), word.substr(word.size() / 2));
    return 0;
}
