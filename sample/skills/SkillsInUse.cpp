// Skills in use: installed for the agents on this device, and suggested.
#include <algorithm>
#include <set>

#include <boost/json.hpp>

#include "Endpoints.h"
#include "skills/Skill.h"

namespace sample {

namespace {

const RecordKind suggestionKind{"suggestions", "suggestion", {}};

using Agents = std::set<std::string>;

Agents agentsIn(const json::object& object) {
    Agents agents;
    if (const json::value* list = object.if_contains("agents")) {
        for (const json::value& agent : list->as_array()) {
            agents.emplace(agent.as_string());
        }
    }
    return agents;
}

/// The agents that the body selects, all of them when it selects none.
Agents requestedAgents(const Request& request) {
    return request.body.contains("agents") ? agentsIn(request.body) : Agents{"claude", "codex"};
}

void setAgents(Record& item, const Agents& agents) {
    item["agents"] = json::array(agents.begin(), agents.end());
}

json::value summary(const Record& item, const Agents& agents) {
    return {{"id", item.at("id")},
            {"name", item.at("name")},
            {"kind", item.at("kind")},
            {"agents", json::array(agents.begin(), agents.end())}};
}

/// A bundle always is.
bool isInstallable(const Record& item) {
    const json::value* files = item.if_contains("files");
    return !files || validationStatus(files->as_object()) == "valid";
}

/// The directories of the skills on this device that the library does not manage yet.
std::vector<Record>& localSkills(Library& library) {
    return library.records["localSkills"];
}

json::value installSkill(Library& library, const Request& request) {
    Record& item = askedItem(library, request);
    if (!isInstallable(item)) {
        throw RequestError(409, "The skill " + std::string(text(item, "name")) +
                                    " is invalid: its SKILL.md must begin with a name and have a description.");
    }
    const Agents agents = requestedAgents(request);
    const auto isInTheWay = [&](const Record& local) {
        return text(local, "name") == text(item, "name") && agents.contains(std::string(text(local, "agent")));
    };
    if (!request.body.contains("replaceConflicts") && std::ranges::any_of(localSkills(library), isInTheWay)) {
        throw RequestError(409, "A skill named " + std::string(text(item, "name")) + " is on this device already.",
                           {{"error", "name_conflict"}, {"confirmationRequired", true}});
    }
    std::erase_if(localSkills(library), isInTheWay);
    Agents installed = agentsIn(item);
    installed.insert(agents.begin(), agents.end());
    setAgents(item, installed);
    return summary(item, agents);
}

json::value uninstallSkill(Library& library, const Request& request) {
    Record& item = askedItem(library, request);
    Agents kept = agentsIn(item);
    Agents removed = requestedAgents(request);
    std::erase_if(removed, [&](const std::string& agent) { return kept.erase(agent) == 0; });
    setAgents(item, kept);
    return summary(item, removed);
}

json::value listInstalled(Library& library, const Request& request) {
    const auto wanted = request.text("agent");
    json::array skills;
    for (const Record& item : recordsWith(library, "skills", "kind", "skill")) {
        const auto add = [&](const Record& source, std::string_view word) {
            for (const std::string& agent : agentsIn(source)) {
                if (isInstallable(item) && (!wanted || agent == *wanted)) {
                    skills.push_back({{"name", item.at("name")}, {"agent", agent}, {"source", word}});
                }
            }
        };
        add(item, "direct");
        for (const Record& bundle : recordsWith(library, "skills", "id", text(item, "parentId"))) {
            add(bundle, "bundle");
        }
    }
    return {{"skills", std::move(skills)}};
}

json::value refreshSkills(Library&, const Request&) {
    return {{"reconciled", true}};
}

json::value listImportable(Library& library, const Request&) {
    return {{"skills", json::array(localSkills(library).begin(), localSkills(library).end())}};
}

json::value importSkill(Library& library, const Request& request) {
    const json::object& body = request.body;
    const auto found = std::ranges::find_if(localSkills(library), [&](const Record& local) {
        const std::string_view directory = text(local, "directory");
        return body.contains("path")
                   ? text(body, "path").ends_with(directory.substr(directory.find('/')))
                   : text(local, "agent") == text(body, "agent") && text(local, "name") == text(body, "name");
    });
    if (found == localSkills(library).end()) {
        throw RequestError(404, "No such skill lies in an agent's directory.");
    }
    const Record local = *found;
    localSkills(library).erase(found);
    Record& item = createItem(library, {{"kind", "skill"}},
                              {{"name", local.at("name")}, {"description", local.at("description")}});
    item["files"] = {{"SKILL.md", skillText(text(item, "name"), text(item, "description"), "")}};
    setAgents(item, {std::string(text(local, "agent"))});
    return summary(item, agentsIn(item));
}

json::value listSuggestions(Library& library, const Request&) {
    const auto& suggestions = library.records["suggestions"];
    return {{"suggestions", json::array(suggestions.begin(), suggestions.end())}};
}

json::value readSuggestion(Library& library, const Request& request) {
    return knownRecord(library, suggestionKind, request.path.at(3));
}

json::value applySuggestion(Library& library, const Request& request) {
    const Record suggestion = knownRecord(library, suggestionKind, request.path.at(3));
    if (!suggestion.contains("skillId")) {
        throw RequestError(400, "Only an update can be applied.");
    }
    Record& item = knownRecord(library, skillKind(), text(suggestion, "skillId"));
    if (item.at("revision") != suggestion.at("revision")) {
        throw RequestError(409, "The skill has changed since this was suggested.", {{"error", "stale_suggestion"}});
    }
    item["files"].as_object()["SKILL.md"] = suggestion.at("text");
    markRevised(item);
    removeRecord(library, suggestionKind, request.path.at(3));
    return {{"appliedTo", item.at("id")}, {"revision", std::to_string(item.at("revision").as_int64())}};
}

} // namespace

Endpoints skillsInUseEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"POST", "/api/skill/item/{id}/install", installSkill},
        {"POST", "/api/skill/item/{id}/uninstall", uninstallSkill},
        {"GET", "/api/skill/installed", listInstalled},
        {"POST", "/api/skill/refresh", refreshSkills},
        {"GET", "/api/skill/importable", listImportable},
        {"POST", "/api/skill/import", importSkill},
        {"GET", "/api/skill/suggestion", listSuggestions},
        {"GET", "/api/skill/suggestion/{id}", readSuggestion},
        {"POST", "/api/skill/suggestion/{id}/apply", applySuggestion},
    };
    return endpoints;
}

} // namespace sample
