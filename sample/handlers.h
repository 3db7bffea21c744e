// What the sample library does for each of its paths. A handler gives the answer's JSON, or throws RequestError.
#pragma once

#include <boost/json/value.hpp>

#include "library.h"
#include "request.h"

namespace sample {

namespace json = boost::json;

json::value status(Library& library, const Request& request);
json::value whoami(Library& library, const Request& request);
json::value checkIn(Library& library, const Request& request);

json::value readProfile(Library& library, const Request& request);
json::value editProfileField(Library& library, const Request& request);
json::value editProfileText(Library& library, const Request& request);
json::value addProfileCard(Library& library, const Request& request);
json::value updateProfileCard(Library& library, const Request& request);
json::value removeProfileCard(Library& library, const Request& request);

json::value listTeams(Library& library, const Request& request);
json::value listIntegrations(Library& library, const Request& request);

json::value listNodes(Library& library, const Request& request);
json::value readNode(Library& library, const Request& request);
json::value listCollection(Library& library, const Request& request); ///< All contexts, or all folders.
json::value listSources(Library& library, const Request& request);
json::value listTranscripts(Library& library, const Request& request);
json::value readFolder(Library& library, const Request& request);
json::value searchNodes(Library& library, const Request& request);
json::value searchContexts(Library& library, const Request& request);

// The paths of contexts and of folders share those that are common to both.
json::value createContext(Library& library, const Request& request);
json::value createFolder(Library& library, const Request& request);
json::value editContext(Library& library, const Request& request);
json::value renameNode(Library& library, const Request& request);
json::value moveNode(Library& library, const Request& request);
json::value removeNode(Library& library, const Request& request);

json::value previewTranscriptRemoval(Library& library, const Request& request);
json::value removeTranscript(Library& library, const Request& request);

json::value readGrants(Library& library, const Request& request);
json::value addGrants(Library& library, const Request& request);
json::value removeGrants(Library& library, const Request& request);

json::value uploadAsset(Library& library, const Request& request);
std::string downloadAsset(Library& library, const Request& request); ///< Gives the image itself.

json::value readAnalytics(Library& library, const Request& request);
json::value takeFeedback(Library& library, const Request& request);
json::value correctSlice(Library& library, const Request& request);

// Of the ontology. The handlers without a name of their own serve every list in it.
json::value listSpaces(Library& library, const Request& request);
json::value createSpace(Library& library, const Request& request);
json::value readOntologyRecord(Library& library, const Request& request);
json::value changeOntologyRecord(Library& library, const Request& request);
json::value removeOntologyRecord(Library& library, const Request& request);
json::value listBelowRecord(Library& library, const Request& request);
json::value createBelowRecord(Library& library, const Request& request);
json::value replaceAssertion(Library& library, const Request& request);
json::value addSupport(Library& library, const Request& request);
json::value removeSupport(Library& library, const Request& request);

// Of skills.
json::value listSkillRoots(Library& library, const Request& request);
json::value listBundle(Library& library, const Request& request);
json::value readSkill(Library& library, const Request& request);
json::value createSkill(Library& library, const Request& request); ///< Or a bundle.
json::value renameSkill(Library& library, const Request& request);
json::value moveSkill(Library& library, const Request& request);
json::value removeSkill(Library& library, const Request& request);
json::value listPackage(Library& library, const Request& request);
json::value readPackageFile(Library& library, const Request& request);
json::value validatePackage(Library& library, const Request& request);
json::value editPackage(Library& library, const Request& request);
json::value installSkill(Library& library, const Request& request);
json::value uninstallSkill(Library& library, const Request& request);
json::value listInstalled(Library& library, const Request& request);
json::value refreshSkills(Library& library, const Request& request);
json::value listImportable(Library& library, const Request& request);
json::value importSkill(Library& library, const Request& request);
json::value listSuggestions(Library& library, const Request& request);
json::value readSuggestion(Library& library, const Request& request);
json::value applySuggestion(Library& library, const Request& request);
json::value reportSkillUse(Library& library, const Request& request);
json::value takeSkillFeedback(Library& library, const Request& request);

} // namespace sample
