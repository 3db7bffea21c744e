#include <algorithm>
#include <limits>

#include <boost/json.hpp>

#include "handlers.h"
#include "parameters.h"
#include "record.h"
#include "text.h"

namespace sample {

namespace json = boost::json;

namespace {

void requireMailParent(const NodeFilter& filter, const Node* parent) {
    const std::string_view kind = parent ? text(*parent, "kind") : "";
    if (!filter.mail.empty() && kind != "email_mailbox" && kind != "email_thread") {
        throw RequestError(400, "E-mail filters need a mailbox or an e-mail thread as the parent.");
    }
}

void sortAsRequested(NodeList& nodes, const Library& library, const Request& request, const Node* parent) {
    const auto sort = request.text("sort");
    if (sort && *sort != "updated") {
        throw RequestError(400, "sort must be updated.");
    }
    const bool named = parent && text(*parent, "id") == text(library.account, "contextsRootId");
    if (named && !sort && !request.flag("recursive")) {
        sortByName(nodes);
    } else {
        sortNewestFirst(nodes);
    }
}

} // namespace

Response listNodes(Library& library, const Request& request) {
    const Node* parent = requestedParent(library, request);
    const std::size_t limit = request.number("limit", 100, 1, 500);
    const std::size_t offset = request.number("offset", 0, 0, 1'000'000'000);
    const NodeFilter filter = requestedFilter(library, request);
    requireMailParent(filter, parent);
    NodeList nodes = nodesBelow(library, parent, request.flag("recursive"));
    std::erase_if(nodes, [&](const Node* node) { return !matches(library, *node, filter); });
    sortAsRequested(nodes, library, request, parent);

    json::array page;
    for (std::size_t at = offset; at < std::min(offset + limit, nodes.size()); ++at) {
        page.push_back(nodeRecord(library, *nodes[at]));
    }
    const std::size_t next = offset + page.size();
    json::object body{
        {"returned", page.size()}, {"offset", offset}, {"total", nodes.size()}, {"hasMore", next < nodes.size()}};
    if (next < nodes.size()) {
        body["nextOffset"] = next;
    }
    body["nodes"] = std::move(page);
    return success(body);
}

Response readNode(Library& library, const Request& request) {
    constexpr std::size_t most = std::numeric_limits<std::size_t>::max();
    const Node& node = knownNode(library, request.id());
    const std::size_t head = request.number("headLines", 0, 1, most);
    const std::size_t tail = request.number("tailLines", 0, 1, most);
    const bool meta = request.flag("meta");
    if ((head > 0) + (tail > 0) + meta + request.flag("full") > 1) {
        throw RequestError(400, "Only one of full, headLines, tailLines and meta can be asked for.");
    }
    if (meta) {
        return success(placedRecord(library, node));
    }
    json::object record = nodeRecord(library, node);
    if (!isContainer(node)) {
        std::string content(text(node, "text"));
        if (head > 0 || tail > 0) {
            const auto lines = splitLines(text(node, "text"));
            const std::size_t count = std::min(head + tail, lines.size());
            content = joinLines(head > 0 ? std::span(lines).first(count) : std::span(lines).last(count));
        }
        record["read"] = {{"content", content}};
    }
    return success(record);
}

} // namespace sample
