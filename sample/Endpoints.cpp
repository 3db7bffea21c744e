#include "Endpoints.h"

#include <algorithm>

#include <boost/json.hpp>

#include "library/Text.h"

namespace sample {

namespace {

/// Where two patterns fit a path, the first is meant.
constexpr Endpoints (*families[])() = {
    accountEndpoints,     profileEndpoints, teamsAndIntegrationsEndpoints,
    searchingEndpoints,   readingEndpoints, listingEndpoints,
    filingEndpoints,      editingEndpoints, removingEndpoints,
    grantsEndpoints,      assetsEndpoints,  usageEndpoints,
    ontologyEndpoints,    skillsEndpoints,  skillPackageEndpoints,
    skillsInUseEndpoints,
};

bool fits(const Endpoint& endpoint, const Request& request) {
    return endpoint.method == request.method &&
           std::ranges::equal(request.path, words(endpoint.pattern, "/"),
                              [](std::string_view word, std::string_view expected) {
                                  return word == expected || expected.starts_with('{');
                              });
}

/// Null when the library knows none.
const Endpoint* endpointOf(const Request& request) {
    for (const auto family : families) {
        const Endpoints endpoints = family();
        const auto found = std::ranges::find_if(endpoints, [&](const auto& each) { return fits(each, request); });
        if (found != endpoints.end()) {
            return &*found;
        }
    }
    return nullptr;
}

} // namespace

Response refusal(unsigned status, std::string_view message, json::object details) {
    details["message"] = message;
    return {.status = status, .body = json::serialize(details)};
}

Response answer(Library& library, std::string_view method, std::string_view target, std::string_view body) {
    try {
        const Request request = parseRequest(method, target, body);
        const Endpoint* found = endpointOf(request);
        if (found == nullptr) {
            return refusal(404, "The sample library does not know " + std::string(method) + " " +
                                    std::string(target.substr(0, target.find('?'))) + ".");
        }
        return {.body =
                    found->bytes ? found->bytes(library, request) : json::serialize(found->handler(library, request))};
    } catch (const RequestError& error) {
        return refusal(error.status, error.what(), error.details);
    } catch (const std::exception& error) {
        return refusal(500, error.what());
    }
}

} // namespace sample
