#include "endpoints.h"

#include <algorithm>

#include "handlers.h"
#include "text.h"

namespace sample {

namespace {

struct Endpoint {
    std::string_view method;
    std::string_view pattern; ///< "{id}" stands for any one word, always the third.
    Response (*handler)(Library&, const Request&);
};

/// Where two patterns fit a path, the first is meant.
constexpr Endpoint endpoints[] = {
    {"GET", "api/status", status},
    {"GET", "api/whoami", whoami},
    {"GET", "api/check-in", checkIn},
    {"GET", "api/nodes", listNodes},
    {"GET", "api/nodes/search", searchNodes},
    {"GET", "api/nodes/{id}", readNode},
    {"GET", "api/contexts/search", searchContexts},
    {"POST", "api/contexts", createContext},
    {"POST", "api/contexts/{id}/edit", editContext},
    {"POST", "api/contexts/{id}/rename", renameNode},
    {"POST", "api/contexts/{id}/move", moveNode},
    {"DELETE", "api/contexts/{id}", removeNode},
    {"POST", "api/folders", createFolder},
    {"POST", "api/folders/{id}/rename", renameNode},
    {"POST", "api/folders/{id}/move", moveNode},
    {"DELETE", "api/folders/{id}", removeNode},
    {"GET", "api/transcripts/{id}/delete-preview", previewTranscriptRemoval},
    {"POST", "api/transcripts/{id}/delete", removeTranscript},
};

bool fits(const std::vector<std::string>& path, std::string_view pattern) {
    return std::ranges::equal(path, split(pattern, '/'), [](std::string_view word, std::string_view expected) {
        return word == expected || (expected == "{id}" && !word.empty());
    });
}

Response dispatch(Library& library, const Request& request) {
    std::string allowed;
    for (const Endpoint& endpoint : endpoints) {
        if (!fits(request.path, endpoint.pattern)) {
            continue;
        }
        if (endpoint.method == request.method) {
            return endpoint.handler(library, request);
        }
        if (allowed.find(endpoint.method) == std::string::npos) {
            allowed += (allowed.empty() ? "" : ", ") + std::string(endpoint.method);
        }
    }
    std::string asked = request.method + " ";
    for (const std::string& word : request.path) {
        asked += "/" + word;
    }
    Response response = refusal(allowed.empty() ? 404 : 405, "The sample library does not know " + asked + ".");
    response.allow = allowed;
    return response;
}

} // namespace

Response answer(Library& library, std::string_view method, std::string_view target, std::string body) {
    try {
        return dispatch(library, parseRequest(method, target, std::move(body)));
    } catch (const RequestError& error) {
        return refusal(error.status, error.what());
    } catch (const std::exception& error) {
        return refusal(500, error.what());
    }
}

} // namespace sample
