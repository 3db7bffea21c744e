#include "shell/NodeListing.h"

#include <algorithm>

#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "platform/Streams.h"
#include "shell/TabTable.h"
#include "shell/Vocabulary.h"

namespace orvane {

namespace {

using platform::JsonDocument;
using platform::JsonObject;

/// The columns that a page has only when one of its nodes has something to show in them.
struct OptionalColumns {
    bool shared = false;
    bool session = false;
    bool thread = false;
};

std::vector<JsonObject> grantsOf(const JsonObject& node) {
    return node.objects("sharedWith").value_or(std::vector<JsonObject>());
}

OptionalColumns optionalColumns(const std::vector<JsonObject>& nodes) {
    OptionalColumns columns;
    for (const JsonObject& node : nodes) {
        columns.shared = columns.shared || !grantsOf(node).empty();
        columns.session = columns.session || node.text("initiated") || node.text("executionMode");
        columns.thread = columns.thread || node.text("threadId");
    }
    return columns;
}

std::vector<TableCell> headerRow(const OptionalColumns& columns) {
    std::vector<TableCell> row{{"kind", "1"}, {"owner", "1"}};
    if (columns.shared) {
        row.push_back({"shared", "1"});
    }
    if (columns.session) {
        row.push_back({"initiated", "1"});
        row.push_back({"execution", "1"});
    }
    row.push_back({"updated", "1"});
    row.push_back({"id", "1"});
    if (columns.thread) {
        row.push_back({"thread", "1"});
    }
    row.push_back({"name", "1"});
    return row;
}

TableCell cell(const JsonObject& node, std::string_view key, std::string_view style) {
    return {std::string(textOrEmpty(node, key)), style};
}

std::vector<TableCell> nodeRow(const JsonObject& node, const OptionalColumns& columns) {
    constexpr std::size_t nameLimit = 80;
    const std::string owner = ownerLabel(node.object("sourceOwner"));
    std::vector<TableCell> row{cell(node, "kind", "2"), {owner, owner == "me" ? "32" : "33"}};
    if (columns.shared) {
        row.push_back({sharedWithLabel(grantsOf(node)), "35"});
    }
    if (columns.session) {
        row.push_back(cell(node, "initiated", "35"));
        row.push_back(cell(node, "executionMode", "2"));
    }
    row.push_back({updatedLabel(node), "2"});
    row.push_back(cell(node, "id", "36"));
    if (columns.thread) {
        row.push_back(cell(node, "threadId", "36"));
    }
    row.push_back({singleLine(textOrEmpty(node, "name"), nameLimit), "1"});
    return row;
}

std::string summary(const JsonObject& page, std::size_t nodeCount, std::string_view verb, Integer requestedOffset) {
    const Integer returned = page.integer("returned").value_or(static_cast<Integer>(nodeCount));
    const Integer offset = page.integer("offset").value_or(requestedOffset);
    // Whatever numbers an answer holds, adding them up is defined.
    const auto index = [&](Integer steps) {
        return std::to_string(
            static_cast<Integer>(static_cast<std::uint64_t>(offset) + static_cast<std::uint64_t>(steps)));
    };
    std::string text =
        "orvane " + std::string(verb) + ": showing " + (returned == 0 ? "0" : index(1)) + "-" + index(returned);
    if (const auto total = page.integer("total")) {
        text += " of " + std::to_string(*total);
    }
    const auto nextOffset = page.integer("nextOffset");
    if (nextOffset && page.boolean("hasMore") != false) {
        text += "; more available with --offset " + std::to_string(*nextOffset);
    }
    return text + "\n";
}

} // namespace

void renderNodeListing(const std::string& path, std::string_view verb, Integer offset, bool json) {
    constexpr std::size_t tabWidth = 8;
    const ServiceReply reply = serviceGet(path, standardTimeout);
    failOnErrorStatus(reply);
    const auto document = json ? std::nullopt : JsonDocument::parseObject(reply.data);
    const auto nodes = document ? document->object().objects("nodes") : std::nullopt;
    if (!nodes) {
        printRawResponse(reply.data);
        return;
    }
    platform::writeStandardError(summary(document->object(), nodes->size(), verb, offset));
    const OptionalColumns columns = optionalColumns(*nodes);
    std::vector<std::vector<TableCell>> rows{headerRow(columns)};
    for (const JsonObject& node : *nodes) {
        rows.push_back(nodeRow(node, columns));
    }
    platform::writeStandardOutput(renderTabTable(std::move(rows), tabWidth));
}

} // namespace orvane
