#include "core/Rendering.h"

#include <algorithm>

#include "platform/Streams.h"
#include "platform/Text.h"

namespace orvane {

void printRawResponse(std::string_view data) {
    platform::writeStandardOutput({data, "\n"});
}

void printReply(const ServiceReply& reply) {
    failOnErrorStatus(reply);
    printRawResponse(reply.data);
}

bool stdoutIsTerminal() {
    static const bool isTerminal = platform::isTerminal(platform::Stream::output);
    return isTerminal;
}

std::string ansiStyled(std::string_view text, std::string_view code) {
    std::string styled;
    if (code.empty() || !stdoutIsTerminal()) {
        return styled.append(text);
    }
    return styled.append("\x1B[").append(code).append("m").append(text).append("\x1B[0m");
}

std::string labelledRowsText(const std::vector<LabelledRow>& rows) {
    std::size_t width = 0;
    for (const LabelledRow& row : rows) {
        width = std::max(width, platform::characterCount(row.label));
    }
    std::string text;
    for (const LabelledRow& row : rows) {
        std::string label(row.label);
        label.append(width - platform::characterCount(row.label), ' ');
        text += ansiStyled(label, "2") + "  " + ansiStyled(row.value, row.code) + "\n";
    }
    return text;
}

void printLabelledRows(const std::vector<LabelledRow>& rows) {
    platform::writeStandardOutput(rows.empty() ? "\n" : labelledRowsText(rows));
}

std::string singleLine(std::string_view text, std::size_t limit) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char byte) { return byte == '\n' || byte == '\r' || byte == '\t'; }, ' ');
    const std::string_view whole = platform::trimmed(line);
    if (platform::characterCount(whole) <= limit) {
        return std::string(whole);
    }
    const std::string_view kept = platform::firstCharacters(whole, limit - 1);
    return std::string(platform::trimmedAtEnd(kept)) + "…";
}

void printMutationLine(std::string_view verb, std::optional<std::string_view> name, std::optional<std::string_view> id,
                       std::optional<std::string_view> detail) {
    constexpr std::size_t nameLimit = 80;
    std::string line = ansiStyled(verb, "32");
    if (name && !name->empty()) {
        line += " " + ansiStyled("\"" + singleLine(*name, nameLimit) + "\"", "1");
    }
    if (id && !id->empty()) {
        line += "  " + ansiStyled(*id, "36");
    }
    if (detail && !detail->empty()) {
        line += "  " + ansiStyled(*detail, "2");
    }
    platform::writeStandardOutput(line + "\n");
}

std::string ownerLabel(const std::optional<platform::JsonObject>& owner) {
    if (!owner || owner->boolean("isCurrentUser") == true) {
        return "me";
    }
    const auto email = owner->text("email");
    return std::string(email ? *email : owner->text("displayName").value_or("?"));
}

} // namespace orvane
