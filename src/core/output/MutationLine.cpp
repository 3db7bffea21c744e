#include "core/output/MutationLine.h"

#include "core/output/SingleLine.h"
#include "core/output/Style.h"
#include "platform/files/Streams.h"

namespace orvane {

void printReportLine(std::string_view text) {
    platform::writeStandardOutput({shownLine(text), "\n"});
}

void printMutationLine(const MutationLine& line) {
    constexpr std::size_t nameLimit = 80;
    std::string text = ansiStyled(line.verb, Style::green);
    if (line.name && !line.name->empty()) {
        text += " " + ansiStyled("\"" + singleLine(*line.name, nameLimit) + "\"", Style::bold);
    }
    if (line.id && !line.id->empty()) {
        text += "  " + ansiStyled(*line.id, Style::cyan);
    }
    if (!line.detail.empty()) {
        text += "  " + ansiStyled(line.detail, Style::dim);
    }
    platform::writeStandardOutput(text + "\n");
}

} // namespace orvane
