#include <algorithm>
#include <limits>

#include <boost/json.hpp>

#include "Endpoints.h"
#include "library/Collection.h"
#include "library/NodeFilter.h"
#include "library/NodeRecord.h"
#include "library/Text.h"
#include "library/Tree.h"

namespace sample {

namespace {

void requireMailParent(const NodeFilter& filter, const Node* parent) {
    const std::string_view kind = parent ? text(*parent, "kind") : "";
    if (!filter.mail.empty() && kind != "email_mailbox" && kind != "email_thread") {
        throw RequestError(400, "E-mail filters need a mailbox or an e-mail thread as the parent.");
    }
}

void sortAsRequested(NodeList& nodes, const Library& library, const Request& request, const Node* parent) {
    const bool named = parent && text(*parent, "id") == text(library.account, "contextsRootId");
    if (named && !request.text("sort") && !request.flag("recursive")) {
        std::ranges::stable_sort(nodes, {}, [](const Node* node) { return fold(text(*node, "name")); });
    } else {
        sortNewestFirst(nodes);
    }
}

/// The part of a text that the request asks for: a number of lines, or of the chunks between blank lines, at its
/// beginning and its end, or else a window of chunks. A chunk of a conversation is a message.
json::object requestedRead(std::string_view text, const Request& request) {
    constexpr std::size_t all = std::numeric_limits<std::size_t>::max();
    const bool byLines = request.text("headLines") || request.text("tailLines");
    const auto pieces = split(text, byLines ? "\n" : "\n\n");
    const auto part = [&](std::size_t offset, std::size_t limit) {
        const std::size_t first = std::min(offset, pieces.size());
        const std::size_t last = first + std::min(limit, pieces.size() - first);
        if (first == last) {
            return json::object{{"content", ""}};
        }
        // A line keeps its line feed, a chunk goes without the blank line behind it.
        const auto end = last == pieces.size() ? text.end() : byLines ? pieces[last].begin() : pieces[last - 1].end();
        return json::object{{"content", std::string_view(pieces[first].begin(), end)}};
    };
    const std::size_t head = request.number(byLines ? "headLines" : "headLimit", 0);
    const std::size_t tail = request.number(byLines ? "tailLines" : "tailLimit", 0);
    json::object read;
    if (request.flag("full")) {
        read = part(0, all);
    } else if (head == 0 && tail == 0) {
        read = part(request.number("offset", 0), request.number("limit", all));
    }
    if (head > 0) {
        read["head"] = part(0, head);
    }
    if (tail > 0) {
        read["tail"] = part(pieces.size() - std::min(tail, pieces.size()), tail);
    }
    read["total"] = pieces.size();
    return read;
}

json::value listNodes(Library& library, const Request& request) {
    const Node* parent = requestedParent(library, request);
    const NodeFilter filter = requestedFilter(library, request);
    requireMailParent(filter, parent);
    NodeList nodes = nodesBelow(library, parent, request.flag("recursive"));
    std::erase_if(nodes, [&](const Node* node) { return !matches(library, *node, filter); });
    sortAsRequested(nodes, library, request, parent);

    const std::size_t first = std::min(request.number("offset", 0), nodes.size());
    const std::size_t next = first + std::min(request.number("limit", 100), nodes.size() - first);
    json::array page;
    for (std::size_t at = first; at < next; ++at) {
        page.push_back(nodeRecord(library, *nodes[at]));
    }
    json::object answer{{"returned", page.size()},
                        {"offset", request.number("offset", 0)},
                        {"total", nodes.size()},
                        {"hasMore", next < nodes.size()}};
    if (next < nodes.size()) {
        answer["nextOffset"] = next;
    }
    answer["nodes"] = std::move(page);
    return answer;
}

json::value readNode(Library& library, const Request& request) {
    const Node& node = askedNode(library, request);
    if (request.flag("meta")) {
        return placedRecord(library, node);
    }
    json::object record = nodeRecord(library, node);
    if (!isContainer(node)) {
        record["read"] = requestedRead(text(node, "text"), request);
    }
    return record;
}

} // namespace

Endpoints readingEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"GET", "/api/nodes", listNodes},           {"GET", "/api/nodes/{id}", readNode},
        {"GET", "/api/sources/{id}", readNode},     {"GET", "/api/contexts/{id}", readNode},
        {"GET", "/api/transcripts/{id}", readNode},
    };
    return endpoints;
}

} // namespace sample
