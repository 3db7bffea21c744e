#include <algorithm>
#include <cstdlib>
#include <functional>

#include <boost/json.hpp>

#include "handlers.h"
#include "parameters.h"
#include "record.h"
#include "text.h"

namespace sample {

namespace json = boost::json;

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
                  .limit = request.number("limit", 10, 1, 500)};
    search.terms = search.literal ? std::vector{fold(search.query)} : words(fold(search.query));
    if (words(search.query).empty()) {
        throw RequestError(400, "q must hold something to search for.");
    }
    return search;
}

NodeList hits(const Library& library, const Request& request, const Search& search, const NodeFilter& filter) {
    NodeList found = documents(library, requestedParent(library, request));
    std::erase_if(found,
                  [&](const Node* node) { return !matches(library, *node, filter) || !mentions(*node, search.terms); });
    return found;
}

json::array results(const Library& library, const Search& search, const NodeList& found, std::size_t offset) {
    json::array page;
    for (std::size_t at = offset; at < found.size() && page.size() < search.limit; ++at) {
        const Node& node = *found[at];
        const Excerpt shown = excerpt(node, search.terms);
        json::object document = nodeRecord(library, node);
        // Unlike a listing, a search gives the instant itself.
        document["originalUpdatedAt"] = isoTimestamp(lastChange(node));
        json::object result{{"nodeId", node.at("id")},
                            {"title", node.at("name")},
                            {"body", shown.text},
                            {"sliceId", std::string(text(node, "id")) + ":" + std::to_string(shown.line + 1)},
                            {"modality", "text"},
                            {"document", std::move(document)}};
        if (const json::value* thread = node.if_contains("threadId")) {
            result["threadId"] = *thread;
        }
        page.push_back(std::move(result));
    }
    return page;
}

/// A token says where its page begins, and proves that it was made for the same search.
std::string pageToken(const Request& request, std::size_t offset) {
    std::string search;
    for (const auto& [key, value] : request.query) {
        if (key != "pageToken" && key != "cliVerb") {
            search += key + '\0' + value + '\0';
        }
    }
    return std::to_string(offset) + "-" + std::to_string(std::hash<std::string>()(std::to_string(offset) + search));
}

std::size_t requestedOffset(const Request& request) {
    const auto token = request.text("pageToken");
    // Too long a number overflows here and makes another token than the one given.
    const std::size_t offset = token ? std::strtoul(token->c_str(), nullptr, 10) : 0;
    if (token && *token != pageToken(request, offset)) {
        throw RequestError(400, "The pageToken is not one of this search's; nothing else may differ between pages.");
    }
    return offset;
}

} // namespace

Response searchContexts(Library& library, const Request& request) {
    const Search search = requestedSearch(request);
    const NodeList found = hits(library, request, search, requestedFilter(library, request, "type", "current_user"));
    return success({{"query", search.query}, {"results", results(library, search, found, 0)}});
}

Response searchNodes(Library& library, const Request& request) {
    constexpr std::size_t candidateLimit = 200;
    const Search search = requestedSearch(request);
    const std::size_t offset = requestedOffset(request);
    NodeList found = hits(library, request, search, requestedFilter(library, request));
    json::object body{{"exhaustive", search.literal}};
    if (!search.literal) {
        found.resize(std::min(found.size(), candidateLimit));
        body["candidateLimit"] = candidateLimit;
    }
    if (offset + search.limit < found.size()) {
        body["nextPageToken"] = pageToken(request, offset + search.limit);
    }
    body["results"] = results(library, search, found, offset);
    return success(body);
}

} // namespace sample
