#include "library/CheckInBriefing.h"

#include "core/SingleLine.h"
#include "platform/Text.h"

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

/// "- Field: value; Field: value"; empty for a card without texts.
std::string cardLine(const JsonObject& card) {
    std::string line;
    for (const std::string_view key : card.sortedKeys()) {
        if (const auto value = card.text(key); value && !value->empty()) {
            line += (line.empty() ? "- " : "; ") + headingForm(key) + ": " + std::string(*value);
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
    std::vector<std::string> lines;
    for (const JsonObject& card : *cards) {
        if (std::string line = cardLine(card); !line.empty()) {
            lines.push_back(std::move(line));
        }
    }
    return platform::joined(lines, "\n");
}

void appendProfile(std::vector<std::string>& lines, const JsonObject& checkIn) {
    const auto profile = checkIn.object("profile");
    if (!profile || profile->boolean("available") != true) {
        return;
    }
    const auto sections = profile->objects("sections");
    if (!sections || sections->empty()) {
        return;
    }
    lines.insert(lines.end(), {"", "## Profile"});
    for (const JsonObject& section : *sections) {
        const auto name = section.text("name");
        const auto value = section.value("value");
        if (!name || !value) {
            continue;
        }
        if (std::string text = sectionText(*value); !text.empty()) {
            lines.push_back("### " + headingForm(*name));
            lines.push_back(std::move(text));
        }
    }
}

void appendRecentActivity(std::vector<std::string>& lines, const JsonObject& checkIn) {
    const auto activity = checkIn.object("recentActivity");
    const auto documents = activity ? activity->objects("documents") : std::nullopt;
    if (!documents || documents->empty()) {
        return;
    }
    lines.insert(lines.end(), {"", "## Recent Activity"});
    for (const JsonObject& document : *documents) {
        const auto foldedText = [&](std::string_view key, std::string_view otherwise) {
            return foldedLine(document.text(key).value_or(otherwise));
        };
        std::string line = "- " + foldedText("name", "Untitled") + " [" + foldedText("kind", "unknown") + "]";
        if (const std::string timestamp = foldedText("displayTimestamp", ""); !timestamp.empty()) {
            line += " updated " + timestamp;
        }
        if (const auto id = document.text("id")) {
            line += " id: " + foldedLine(*id);
        }
        lines.push_back(std::move(line));
        if (const std::string label = foldedText("label", ""); !label.empty()) {
            lines.push_back("  " + label);
        }
    }
}

} // namespace

std::string checkInBriefing(const JsonObject& checkIn) {
    std::vector<std::string> lines{"--- ORVANE BRIEFING (auto-injected) ---"};
    appendProfile(lines, checkIn);
    appendRecentActivity(lines, checkIn);
    return lines.size() == 1 ? std::string() : platform::joined(lines, "\n");
}

} // namespace orvane
