// `stat`: what a node is and where it sits.
#include <algorithm>

#include "core/inputs/Identifiers.h"
#include "core/output/DisplayDates.h"
#include "core/output/LabelledRows.h"
#include "core/output/SingleLine.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "platform/files/Streams.h"
#include "platform/text/Text.h"
#include "shell/NodeRecord.h"
#include "shell/Shell.h"

namespace orvane {

namespace {

using platform::characterCount;
using platform::JsonObject;

/// One node of the chain from the outermost ancestor down.
struct TreeEntry {
    std::string prefix;
    std::string name;
    std::string kind;
    std::string_view id;

    std::size_t nameWidth() const { return characterCount(prefix) + characterCount(name); }
};

std::string spaces(std::size_t count) {
    return std::string(count, ' ');
}

TreeEntry treeEntry(const JsonObject& node, std::size_t depth) {
    constexpr std::size_t nameLimit = 80;
    return {depth == 0 ? "" : spaces((depth - 1) * 3) + "└─ ",
            shownLine(singleLine(textOrEmpty(node, "name"), nameLimit)), shownLine(textOrEmpty(node, "kind")),
            textOrEmpty(node, "id")};
}

std::string treePlaceLines(const std::vector<JsonObject>& ancestors, const JsonObject& node) {
    std::vector<TreeEntry> entries;
    for (const JsonObject& ancestor : ancestors) {
        entries.push_back(treeEntry(ancestor, entries.size()));
    }
    entries.push_back(treeEntry(node, entries.size()));
    std::size_t nameWidth = 0;
    std::size_t kindWidth = 0;
    for (const TreeEntry& entry : entries) {
        nameWidth = std::max(nameWidth, entry.nameWidth());
        kindWidth = std::max(kindWidth, characterCount(entry.kind));
    }
    std::vector<std::string> lines;
    for (const TreeEntry& entry : entries) {
        lines.push_back(ansiStyled(entry.prefix, Style::dim) + ansiStyled(entry.name, Style::bold) +
                        spaces(nameWidth - entry.nameWidth()) + "  " + ansiStyled(entry.kind, Style::dim) +
                        spaces(kindWidth - characterCount(entry.kind)) + "  " + ansiStyled(entry.id, Style::cyan));
    }
    lines.back() += "  " + ansiStyled("← here", Style::boldYellow);
    return platform::joined(lines, "\n");
}

std::string ownerLine(const std::optional<JsonObject>& owner) {
    if (owner && owner->boolean("isCurrentUser") == true) {
        const auto email = owner->text("email");
        return email ? "you · " + std::string(*email) : "you";
    }
    return std::string(ownerLabel(owner));
}

std::string childCountsText(const JsonObject& node) {
    std::vector<std::string> counts;
    if (const auto childCounts = node.object("childCounts")) {
        for (const char* key : {"folders", "transcripts", "notes", "contexts"}) {
            if (const auto count = childCounts->integer(key); count && *count > 0) {
                counts.push_back(std::to_string(*count) + " " + key);
            }
        }
    }
    return platform::joined(counts, ", ");
}

std::string factLines(const JsonObject& node) {
    std::vector<LabelledRow> rows;
    const auto addIfNotEmpty = [&](std::string_view label, std::string value, Style style) {
        if (!value.empty()) {
            rows.push_back({label, std::move(value), style});
        }
    };
    addIfNotEmpty("owner", ownerLine(node.object("sourceOwner")), Style::green);
    rows.push_back({"type", std::string(textOrEmpty(node, "kind"))});
    if (node.boolean("isContainer") == true) {
        addIfNotEmpty("children", childCountsText(node), Style::plain);
    }
    platform::LocalClock clock;
    addIfNotEmpty("updated", updatedLabel(node, clock), Style::dim);
    addIfNotEmpty("created", formatDisplayDate(textOrEmpty(node, "originalCreatedAt"), clock), Style::dim);
    addIfNotEmpty("initiated", std::string(textOrEmpty(node, "initiated")), Style::magenta);
    addIfNotEmpty("execution", std::string(textOrEmpty(node, "executionMode")), Style::dim);
    return labelledRowsText(rows);
}

struct Stat final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "stat",
                .abstract = "Show a node's metadata (kind, owner, counts, dates) and its place in the tree, without "
                            "dumping its content. Works on files and directories."};
    }

    Argument<std::string> id{*this, "id", "The UUID of the node."};
    Flag<bool> json{*this, "json", "Output the raw JSON response instead of the formatted view."};

    void validate() const override { validateUUID(*id); }

    void run() const override {
        const QueryItems items = QueryItems().add("meta", "true").add("cliVerb", "stat");
        const std::string path = buildQueryPath("/api/nodes/" + *id, items);
        if (json) {
            passOnGet(path);
            return;
        }
        renderObject(serviceGet(path), [](const JsonObject& node) {
            const auto ancestors = node.objects("ancestors").value_or(std::vector<JsonObject>());
            platform::writeStandardOutput(treePlaceLines(ancestors, node) + "\n\n" + factLines(node));
        });
    }
};

} // namespace

CommandType statCommand() {
    return CommandType::of<Stat>();
}

} // namespace orvane
