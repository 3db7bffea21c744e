#include <algorithm>

#include <boost/json.hpp>
#include <boost/uuid/name_generator_sha1.hpp>
#include <boost/uuid/uuid_io.hpp>

#include "Endpoints.h"
#include "library/Collection.h"
#include "library/NodeFilter.h"
#include "library/NodeRecord.h"
#include "library/Text.h"
#include "library/Tree.h"

namespace sample {

namespace {

struct Search {
    std::string query;
    std::vector<std::string> terms; ///< Folded.
    bool literal = false;
    std::size_t limit = 0;
};

Search requestedSearch(const Request& request) {
    Search search{.query = request.text("q").value_or(""),
                  .terms = {},
                  .literal = request.flag("literal"),
                  .limit = request.number("limit", 10)};
    search.terms = search.literal ? std::vector{fold(search.query)} : words(fold(search.query));
    if (words(search.query).empty()) {
        throw RequestError(400, "q must hold something to search for.");
    }
    return search;
}

/// Whether a node's name or text holds each of the terms.
bool mentions(const Node& node, const std::vector<std::string>& terms) {
    return std::ranges::all_of(terms, [&](const std::string& term) {
        return containsFolded(text(node, "name"), term) || containsFolded(text(node, "text"), term);
    });
}

NodeList hits(const Library& library, const Request& request, const Search& search, const NodeFilter& filter) {
    NodeList found = documents(library, requestedParent(library, request));
    std::erase_if(found,
                  [&](const Node* node) { return !matches(library, *node, filter) || !mentions(*node, search.terms); });
    return found;
}

/// The same for the same line of the same node at every start.
std::string sliceId(const Node& node, std::size_t line) {
    const boost::uuids::name_generator_sha1 generator(boost::uuids::ns::oid());
    return to_string(generator(std::string(text(node, "id")) + ":" + std::to_string(line)));
}

/// What is known of the slice: that it is text, or what was said against it.
std::string_view modality(const Library& library, std::string_view slice) {
    const json::value* corrections = library.account.if_contains("corrections");
    const std::string_view correction = corrections ? text(corrections->as_object(), slice) : std::string_view();
    return correction.empty() ? "text" : correction;
}

bool isSlice(const Library& library, std::string_view id) {
    return std::ranges::any_of(library.nodes, [&](const Node& node) {
        const std::size_t count = split(text(node, "text")).size();
        for (std::size_t line = 0; line < std::max<std::size_t>(count, 1); ++line) {
            if (sliceId(node, line) == id) {
                return true;
            }
        }
        return false;
    });
}

json::object result(const Library& library, const Node& node, const std::vector<std::string>& terms) {
    constexpr std::size_t mostLines = 3;
    const auto lines = split(text(node, "text"));
    std::vector<std::string_view> shown; ///< The first few that hold a term, or else the very first.
    std::size_t first = 0;
    for (std::size_t at = 0; at < lines.size() && shown.size() < mostLines; ++at) {
        if (std::ranges::any_of(terms, [&](const auto& term) { return containsFolded(lines[at], term); })) {
            first = shown.empty() ? at : first;
            shown.push_back(lines[at]);
        }
    }
    if (shown.empty() && !lines.empty()) {
        shown.push_back(lines.front());
    }
    json::object document = nodeRecord(library, node);
    // Unlike a listing, a search gives the instant itself.
    document["originalUpdatedAt"] = isoTimestamp(lastChange(node));
    const std::string slice = sliceId(node, first);
    json::object result{{"nodeId", node.at("id")},
                        {"title", node.at("name")},
                        {"body", joinLines(shown)},
                        {"sliceId", slice},
                        {"modality", modality(library, slice)},
                        {"document", document}};
    if (const json::value* thread = node.if_contains("threadId")) {
        result["threadId"] = *thread;
    }
    return result;
}

json::array results(const Library& library, const Search& search, const NodeList& found, std::size_t offset) {
    json::array page;
    for (std::size_t at = offset; at < found.size() && page.size() < search.limit; ++at) {
        page.push_back(result(library, *found[at], search.terms));
    }
    return page;
}

json::value searchContexts(Library& library, const Request& request) {
    const Search search = requestedSearch(request);
    const NodeList found = hits(library, request, search, requestedFilter(library, request, "type", "current_user"));
    return {{"query", search.query}, {"results", results(library, search, found, 0)}};
}

json::value searchNodes(Library& library, const Request& request) {
    constexpr std::size_t candidateLimit = 200;
    const Search search = requestedSearch(request);
    const std::size_t offset = request.number("pageToken", 0);
    NodeList found = hits(library, request, search, requestedFilter(library, request));
    json::object answer{{"exhaustive", search.literal}};
    if (!search.literal) {
        found.resize(std::min(found.size(), candidateLimit));
        answer["candidateLimit"] = candidateLimit;
    }
    answer["results"] = results(library, search, found, offset);
    if (offset + search.limit < found.size()) {
        answer["nextPageToken"] = std::to_string(offset + search.limit);
    }
    return answer;
}

json::value correctSlice(Library& library, const Request& request) {
    const std::string& slice = request.path.at(3);
    if (!isSlice(library, slice)) {
        throw RequestError(404, "No slice has the id " + slice + ".");
    }
    json::value& corrections = library.account["corrections"];
    json::object& all = corrections.is_object() ? corrections.get_object() : corrections.emplace_object();
    if (const std::string_view correction = text(request.body, "modality"); correction.empty()) {
        all.erase(slice);
    } else {
        all[slice] = correction;
    }
    return {{"sliceId", slice}, {"modality", modality(library, slice)}};
}

} // namespace

Endpoints searchingEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"GET", "/api/nodes/search", searchNodes},
        {"GET", "/api/contexts/search", searchContexts},
        {"PUT", "/api/slices/modality/{id}", correctSlice},
    };
    return endpoints;
}

} // namespace sample
