#include "endpoints.h"

#include <algorithm>

#include <boost/json.hpp>

#include "handlers.h"
#include "text.h"

namespace sample {

namespace {

struct Endpoint {
    std::string_view method;
    std::string_view pattern; ///< "{id}", "{list}" and "{operation}" stand for any one word.
    json::value (*handler)(Library&, const Request&);
    std::string (*bytes)(Library&, const Request&) = nullptr; ///< In place of the handler where no JSON is given.
};

/// Where two patterns fit a path, the first is meant. A new endpoint takes a line here and a handler in handlers.h.
constexpr Endpoint endpoints[] = {
    {"GET", "/api/status", status},
    {"GET", "/api/whoami", whoami},
    {"GET", "/api/check-in", checkIn},
    {"GET", "/api/profile", readProfile},
    {"POST", "/api/profile/edit-field", editProfileField},
    {"POST", "/api/profile/edit-text", editProfileText},
    {"POST", "/api/profile/add-card", addProfileCard},
    {"POST", "/api/profile/update-card", updateProfileCard},
    {"POST", "/api/profile/remove-card", removeProfileCard},
    {"GET", "/api/teams", listTeams},
    {"GET", "/api/integrations", listIntegrations},
    {"GET", "/api/nodes", listNodes},
    {"GET", "/api/nodes/search", searchNodes},
    {"GET", "/api/nodes/{id}", readNode},
    {"GET", "/api/sources", listSources},
    {"GET", "/api/sources/{id}", readNode},
    {"GET", "/api/contexts", listCollection},
    {"GET", "/api/contexts/search", searchContexts},
    {"GET", "/api/contexts/{id}", readNode},
    {"POST", "/api/contexts", createContext},
    {"POST", "/api/contexts/{id}/edit", editContext},
    {"POST", "/api/contexts/{id}/rename", renameNode},
    {"POST", "/api/contexts/{id}/move", moveNode},
    {"DELETE", "/api/contexts/{id}", removeNode},
    {"GET", "/api/folders", listCollection},
    {"GET", "/api/folders/{id}", readFolder},
    {"POST", "/api/folders", createFolder},
    {"POST", "/api/folders/{id}/rename", renameNode},
    {"POST", "/api/folders/{id}/move", moveNode},
    {"DELETE", "/api/folders/{id}", removeNode},
    {"GET", "/api/transcripts", listTranscripts},
    {"GET", "/api/transcripts/{id}", readNode},
    {"GET", "/api/transcripts/{id}/delete-preview", previewTranscriptRemoval},
    {"POST", "/api/transcripts/{id}/delete", removeTranscript},
    {"GET", "/api/sharing/{id}", readGrants},
    {"POST", "/api/sharing/{id}", addGrants},
    {"DELETE", "/api/sharing/{id}", removeGrants},
    {"POST", "/api/assets", uploadAsset},
    {"GET", "/api/assets/{id}", nullptr, downloadAsset},
    {"GET", "/api/analytics", readAnalytics},
    {"POST", "/api/feedback", takeFeedback},
    {"PUT", "/api/slices/modality/{id}", correctSlice},
    {"GET", "/api/ontology/v2/spaces", listSpaces},
    {"POST", "/api/ontology/v2/spaces", createSpace},
    {"GET", "/api/ontology/v2/{list}/{id}", readOntologyRecord},
    {"PATCH", "/api/ontology/v2/{list}/{id}", changeOntologyRecord},
    {"DELETE", "/api/ontology/v2/{list}/{id}", removeOntologyRecord},
    {"POST", "/api/ontology/v2/assertions/{id}/replace", replaceAssertion},
    {"POST", "/api/ontology/v2/assertions/{id}/supports", addSupport},
    {"DELETE", "/api/ontology/v2/assertions/{id}/supports/{id}", removeSupport},
    {"GET", "/api/ontology/v2/{list}/{id}/{list}", listBelowRecord},
    {"POST", "/api/ontology/v2/{list}/{id}/{list}", createBelowRecord},
    {"GET", "/api/skill/roots", listSkillRoots},
    {"POST", "/api/skill/create", createSkill},
    {"GET", "/api/skill/item/{id}", readSkill},
    {"GET", "/api/skill/item/{id}/children", listBundle},
    {"POST", "/api/skill/item/{id}/rename", renameSkill},
    {"POST", "/api/skill/item/{id}/move", moveSkill},
    {"POST", "/api/skill/item/{id}/delete", removeSkill},
    {"GET", "/api/skill/item/{id}/package", listPackage},
    {"GET", "/api/skill/item/{id}/package/file", readPackageFile},
    {"GET", "/api/skill/item/{id}/package/validate", validatePackage},
    {"POST", "/api/skill/item/{id}/package/{operation}", editPackage},
    {"POST", "/api/skill/item/{id}/install", installSkill},
    {"POST", "/api/skill/item/{id}/uninstall", uninstallSkill},
    {"GET", "/api/skill/installed", listInstalled},
    {"POST", "/api/skill/refresh", refreshSkills},
    {"GET", "/api/skill/importable", listImportable},
    {"POST", "/api/skill/import", importSkill},
    {"GET", "/api/skill/suggestion", listSuggestions},
    {"GET", "/api/skill/suggestion/{id}", readSuggestion},
    {"POST", "/api/skill/suggestion/{id}/apply", applySuggestion},
    {"GET", "/api/skill/analytics", reportSkillUse},
    {"POST", "/api/skill/feedback", takeSkillFeedback},
};

bool fits(const Endpoint& endpoint, const Request& request) {
    return endpoint.method == request.method &&
           std::ranges::equal(request.path, words(endpoint.pattern, "/"),
                              [](std::string_view word, std::string_view expected) {
                                  return word == expected || expected.starts_with('{');
                              });
}

Response refusal(unsigned status, std::string_view message, json::object details = {}) {
    details["message"] = message;
    return {.status = status, .body = json::serialize(details)};
}

} // namespace

Response answer(Library& library, std::string_view method, std::string_view target, std::string_view body) {
    try {
        const Request request = parseRequest(method, target, body);
        const auto* found = std::ranges::find_if(endpoints, [&](const auto& each) { return fits(each, request); });
        if (found == std::end(endpoints)) {
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
