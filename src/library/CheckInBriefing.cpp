#include "library/CheckInBriefing.h"

#include "core/output/SingleLine.h"
#include "platform/text/Text.h"

namespace orvane {

namespace {

using platform::JsonObject;
using platform::JsonValue;

/// A key as a heading: "dateOfBirth" and "date_of_birth" become "Date Of Birth".
std::string headingForm(std::string_view key) {
    const auto isBetween = [](char byte, char first, char last) { return byte >= first && byte <= last; };
    std::string words;
    char previous = '\0';
    for (const char byte : key) {
        if (isBetween(previous, 'a', 'z') && isBetween(byte, 'A', 'Z')) {
            words += ' ';
        }
        words += byte == '_' ? ' ' : byte;
        previous = byte;
    }
    return platform::capitalized(words);
}

/// A text that is made of lines.
class Lines {
public:
    /// Adds one line, whatever line ends are in the names and values of others that it is made of.
    void addLine(std::string_view line) { addText(foldedLine(line)); }

    /// Adds a text with the lines that it has.
    void addText(std::string_view text) { text_.append(text_.empty() ? "" : "\n").append(text); }

    std::string finish() && { return std::move(text_); }

private:
    std::string text_;
};

/// "- Field: value; Field: value"; empty for a card without texts.
std::string cardLine(const JsonObject& card) {
    std::string line;
    for (const auto& [key, value] : card.members()) {
        if (const auto text = value.text(); text && !text->empty()) {
            line.append(line.empty() ? "- " : "; ").append(headingForm(key)).append(": ").append(*text);
        }
    }
    return line;
}

std::string sectionText(const JsonValue& value) {
    if (const auto text = value.text()) {
        return std::string(platform::trimmed(*text));
    }
    const auto cards = value.objects();
    if (!cards) {
        return value.prettyText();
    }
    Lines lines;
    for (const JsonObject& card : *cards) {
        if (const std::string line = cardLine(card); !line.empty()) {
            lines.addLine(line);
        }
    }
    return std::move(lines).finish();
}

void addProfile(Lines& lines, const JsonObject& checkIn) {
    const auto profile = checkIn.object("profile");
    if (!profile || profile->boolean("available") != true) {
        return;
    }
    const auto sections = profile->objects("sections");
    if (!sections || sections->empty()) {
        return;
    }
    lines.addText("\n## Profile");
    for (const JsonObject& section : *sections) {
        const auto name = section.text("name");
        const auto value = section.value("value");
        if (!name || !value) {
            continue;
        }
        if (const std::string text = sectionText(*value); !text.empty()) {
            lines.addLine("### " + headingForm(*name));
            lines.addText(text);
        }
    }
}

void addRecentActivity(Lines& lines, const JsonObject& checkIn) {
    const auto activity = checkIn.object("recentActivity");
    const auto documents = activity ? activity->objects("documents") : std::nullopt;
    if (!documents || documents->empty()) {
        return;
    }
    lines.addText("\n## Recent Activity");
    for (const JsonObject& document : *documents) {
        std::string line = "- ";
        line.append(document.text("name").value_or("Untitled"));
        line.append(" [").append(document.text("kind").value_or("unknown")).append("]");
        if (const auto timestamp = document.text("displayTimestamp"); timestamp && !timestamp->empty()) {
            line.append(" updated ").append(*timestamp);
        }
        if (const auto id = document.text("id")) {
            line.append(" id: ").append(*id);
        }
        lines.addLine(line);
        if (const auto label = document.text("label"); label && !label->empty()) {
            lines.addLine("  " + std::string(*label));
        }
    }
}

} // namespace

std::string checkInBriefing(const JsonObject& checkIn) {
    constexpr std::string_view header = "--- ORVANE BRIEFING (auto-injected) ---";
    Lines lines;
    lines.addText(header);
    addProfile(lines, checkIn);
    addRecentActivity(lines, checkIn);
    std::string briefing = std::move(lines).finish();
    if (briefing.size() == header.size()) {
        briefing.clear();
    }
    return briefing;
}

} // namespace orvane
