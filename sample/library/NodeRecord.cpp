#include "library/NodeRecord.h"

#include <algorithm>

#include <boost/json.hpp>

#include "library/NodeFilter.h"
#include "library/Tree.h"

namespace sample {

namespace json = boost::json;

namespace {

json::object childCounts(const Library& library, const Node& node) {
    const NodeList children = nodesBelow(library, &node, false);
    json::object counts;
    counts["folders"] =
        std::ranges::count_if(children, [](const Node* child) { return text(*child, "kind").ends_with("_folder"); });
    constexpr std::pair<const char*, const char*> groups[] = {
        {"transcripts", "transcript"}, {"notes", "notes"}, {"contexts", "context"}};
    for (const auto& group : groups) {
        counts[group.first] =
            std::ranges::count_if(children, [&](const Node* child) { return isOfKind(*child, group.second); });
    }
    return counts;
}

} // namespace

json::object nodeRecord(const Library& library, const Node& node) {
    json::object record;
    for (const auto* key :
         {"id", "name", "kind", "emoji", "sharedWith", "initiated", "executionMode", "threadId", "sources"}) {
        if (const json::value* value = node.if_contains(key)) {
            record[key] = *value;
        }
    }
    record["isContainer"] = isContainer(node);
    const json::object& owner = *library.findUser(text(node, "owner"));
    record["sourceOwner"] = {{"isCurrentUser", library.isCurrentUser(owner)},
                             {"email", owner.at("email")},
                             {"displayName", owner.at("name")}};
    for (const auto* key : {"updatedAt", "originalUpdatedAt", "originalCreatedAt"}) {
        if (const auto instant = instantUnder(node, key)) {
            record[key] = displayTimestamp(*instant);
        }
    }
    return record;
}

json::object placedRecord(const Library& library, const Node& node) {
    json::object record = nodeRecord(library, node);
    json::array above;
    for (const Node* ancestor : ancestors(library, node)) {
        above.push_back(nodeRecord(library, *ancestor));
    }
    record["ancestors"] = std::move(above);
    if (isContainer(node)) {
        record["childCounts"] = childCounts(library, node);
    }
    return record;
}

} // namespace sample
