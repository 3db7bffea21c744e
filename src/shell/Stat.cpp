#include "shell/Stat.h"

#include <algorithm>

#include "core/DisplayDates.h"
#include "core/Identifiers.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "platform/Streams.h"
#include "platform/Text.h"
#include "shell/NodeReading.h"
#include "shell/Vocabulary.h"

namespace orvane {

namespace {

using platform::characterCount;
using platform::JsonObject;

/// One node of the chain from the outermost ancestor down.
struct TreeEntry {
    std::string prefix;
    std::string name;
    std::string_view kind;
    std::string_view id;

    std::size_t nameWidth() const { return characterCount(prefix) + characterCount(name); }
};

std::string blanks(std::size_t count) {
    return std::string(count, ' ');
}

TreeEntry treeEntry(const JsonObject& node, std::size_t depth) {
    constexpr std::size_t nameLimit = 80;
    return {depth == 0 ? "" : blanks((depth - 1) * 3) + "└─ ", singleLine(textOrEmpty(node, "name"), nameLimit),
            textOrEmpty(node, "kind"), textOrEmpty(node, "id")};
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
        lines.push_back(ansiStyled(entry.prefix, "2") + ansiStyled(entry.name, "1") +
                        blanks(nameWidth - entry.nameWidth()) + "  " + ansiStyled(entry.kind, "2") +
                        blanks(kindWidth - characterCount(entry.kind)) + "  " + ansiStyled(entry.id, "36"));
    }
    lines.back() += "  " + ansiStyled("← here", "1;33");
    return platform::joined(lines, "\n");
}

std::string ownerLine(const std::optional<JsonObject>& owner) {
    if (owner && owner->boolean("isCurrentUser") == true) {
        const auto email = owner->text("email");
        return email ? "you · " + std::string(*email) : "you";
    }
    return ownerLabel(owner);
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
    const auto addIfNotEmpty = [&](std::string_view label, std::string value, std::string_view code) {
        if (!value.empty()) {
            rows.push_back({label, std::move(value), code});
        }
    };
    addIfNotEmpty("owner", ownerLine(node.object("sourceOwner")), "32");
    rows.push_back({"type", std::string(textOrEmpty(node, "kind")), ""});
    if (node.boolean("isContainer") == true) {
        addIfNotEmpty("children", childCountsText(node), "");
    }
    addIfNotEmpty("updated", updatedLabel(node), "2");
    addIfNotEmpty("created", formatDisplayDate(textOrEmpty(node, "originalCreatedAt")), "2");
    addIfNotEmpty("initiated", std::string(textOrEmpty(node, "initiated")), "35");
    addIfNotEmpty("execution", std::string(textOrEmpty(node, "executionMode")), "2");
    return labelledRowsText(rows);
}

} // namespace

CommandConfiguration Stat::configuration() {
    return {.commandName = "stat",
            .abstract = "Show a node's metadata (kind, owner, counts, dates) and its place in the tree, without "
                        "dumping its content. Works on files and directories."};
}

void Stat::validate() const {
    validateUUID(*id);
}

void Stat::run() const {
    const std::string path = nodePath(*id, QueryItems().add("meta", "true").add("cliVerb", "stat"));
    const ServiceReply reply = serviceGet(path, standardTimeout);
    failOnErrorStatus(reply);
    if (json) {
        printRawResponse(reply.data);
        return;
    }
    renderObject(reply.data, [](const JsonObject& node) {
        const auto ancestors = node.objects("ancestors").value_or(std::vector<JsonObject>());
        platform::writeStandardOutput(treePlaceLines(ancestors, node) + "\n\n" + factLines(node));
    });
}

} // namespace orvane
