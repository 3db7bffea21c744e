#include "shell/NodeTable.h"

#include "core/service/Answers.h"
#include "platform/files/Streams.h"
#include "shell/NodeRecord.h"
#include "shell/TabTable.h"

namespace orvane {

namespace {

using platform::JsonDocument;
using platform::JsonObject;
using platform::JsonValue;

/// The columns that a page has only when one of its nodes has something to show in them.
struct OptionalColumns {
    bool shared = false;
    bool session = false;
    bool thread = false;
};

std::string_view valueText(const std::optional<JsonValue>& value) {
    return value ? value->text().value_or("") : "";
}

std::vector<JsonObject> objectsOrNone(const std::optional<JsonValue>& value) {
    return value ? value->objects().value_or(std::vector<JsonObject>()) : std::vector<JsonObject>();
}

OptionalColumns optionalColumns(const std::vector<JsonObject>& nodes) {
    const auto isText = [](const std::optional<JsonValue>& value) { return value && value->isText(); };
    OptionalColumns columns;
    for (const JsonObject& node : nodes) {
        const auto [grants, initiated, mode, thread] =
            node.values({"sharedWith", "initiated", "executionMode", "threadId"});
        columns.shared = columns.shared || !objectsOrNone(grants).empty();
        columns.session = columns.session || isText(initiated) || isText(mode);
        columns.thread = columns.thread || isText(thread);
    }
    return columns;
}

void addHeader(TableRows& rows, const OptionalColumns& columns) {
    rows.add("kind", Style::bold);
    rows.add("owner", Style::bold);
    if (columns.shared) {
        rows.add("shared", Style::bold);
    }
    if (columns.session) {
        rows.add("initiated", Style::bold);
        rows.add("execution", Style::bold);
    }
    rows.add("updated", Style::bold);
    rows.add("id", Style::bold);
    if (columns.thread) {
        rows.add("thread", Style::bold);
    }
    rows.add("name", Style::bold);
    rows.endRow();
}

void addNode(TableRows& rows, const JsonObject& node, const OptionalColumns& columns, platform::LocalClock& clock) {
    constexpr std::size_t nameLimit = 80;
    const auto [kind, owner, grants, initiated, mode, id, thread, name] =
        node.values({"kind", "sourceOwner", "sharedWith", "initiated", "executionMode", "id", "threadId", "name"});
    const std::string_view ownerName = ownerLabel(owner ? owner->object() : std::nullopt);
    rows.add(valueText(kind), Style::dim);
    rows.add(ownerName, ownerName == "me" ? Style::green : Style::yellow);
    if (columns.shared) {
        rows.add(rows.keep(sharedWithLabel(objectsOrNone(grants))), Style::magenta);
    }
    if (columns.session) {
        rows.add(valueText(initiated), Style::magenta);
        rows.add(valueText(mode), Style::dim);
    }
    rows.add(rows.keep(updatedLabel(node, clock)), Style::dim);
    rows.add(valueText(id), Style::cyan);
    if (columns.thread) {
        rows.add(valueText(thread), Style::cyan);
    }
    rows.add(valueText(name), Style::bold, nameLimit);
    rows.endRow();
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

void renderNodeListing(const NodeListing& listing) {
    constexpr std::size_t tabWidth = 8;
    if (listing.json) {
        passOnGet(listing.path);
        return;
    }
    const ServiceReply reply = serviceGet(listing.path);
    failOnErrorStatus(reply);
    const auto document = JsonDocument::parseObject(reply.data);
    const auto nodes = document ? document->object().objects("nodes") : std::nullopt;
    if (!nodes) {
        printRawResponse(reply.data);
        return;
    }
    const OptionalColumns columns = optionalColumns(*nodes);
    constexpr std::size_t maximumColumns = 9;
    TableRows rows;
    rows.reserve((nodes->size() + 1) * maximumColumns);
    addHeader(rows, columns);
    platform::LocalClock clock;
    for (const JsonObject& node : *nodes) {
        addNode(rows, node, columns, clock);
    }
    const std::string table = renderTabTable(rows, tabWidth);
    platform::writeStandardError(summary(document->object(), nodes->size(), listing.verb, listing.offset));
    platform::writeStandardOutput(table);
}

} // namespace orvane
