// The user's profile: fields of one line, texts, and lists of cards.
#include <algorithm>
#include <array>

#include <boost/json.hpp>

#include "Endpoints.h"

namespace sample {

namespace {

constexpr auto fieldNames = std::to_array<std::string_view>(
    {"name", "preferredName", "dateOfBirth", "email", "phone", "address", "employer", "jobTitle"});
constexpr auto textNames = std::to_array<std::string_view>({"biography", "communication", "personality"});
constexpr auto cardNames = std::to_array<std::string_view>(
    {"education", "workExperience", "connections", "projects", "decisions", "expertise", "upcoming"});

json::array& sections(Library& library) {
    return library.account["profile"].is_array() ? library.account["profile"].get_array()
                                                 : library.account["profile"].emplace_array();
}

/// The value of a section, null where nothing has been entered.
json::value* findSection(Library& library, std::string_view name) {
    for (json::value& section : sections(library)) {
        if (text(section.as_object(), "name") == name) {
            return &section.at("value");
        }
    }
    return nullptr;
}

/// The name under `key` of the request, one of `names`.
template <std::size_t count>
std::string_view requestedName(const Request& request, std::string_view key,
                               const std::array<std::string_view, count>& names) {
    const std::string_view name = text(request.body, key);
    if (std::ranges::count(names, name) == 0) {
        std::string known;
        for (const std::string_view each : names) {
            known += (known.empty() ? "" : ", ") + std::string(each);
        }
        throw RequestError(400, "The " + std::string(key) + " must be one of " + known + ".");
    }
    return name;
}

std::string_view requestedText(const Request& request, std::string_view key) {
    const json::value* value = request.body.if_contains(key);
    if (!value || !value->is_string()) {
        throw RequestError(400, "The " + std::string(key) + " must be a text.");
    }
    return value->get_string();
}

json::object requestedCard(const Request& request, std::string_view key) {
    const json::value* card = request.body.if_contains(key);
    if (!card || !card->is_object() || card->get_object().empty()) {
        throw RequestError(400, "The " + std::string(key) + " must hold at least one field.");
    }
    return card->get_object();
}

json::value& sectionToFill(Library& library, std::string_view name) {
    if (json::value* section = findSection(library, name)) {
        return *section;
    }
    sections(library).push_back({{"name", name}, {"value", nullptr}});
    return sections(library).back().at("value");
}

json::value answer(std::string_view name, const json::value& value) {
    return {{"section", name}, {"value", value}};
}

/// The cards of the section that the request names, and the place of the card that it means.
std::pair<json::array&, std::size_t> requestedPlace(Library& library, const Request& request) {
    const std::string_view name = requestedName(request, "section", cardNames);
    json::value* section = findSection(library, name);
    const std::size_t count = section ? section->as_array().size() : 0;
    const json::value* index = request.body.if_contains("index");
    const std::int64_t* at = index ? index->if_int64() : nullptr;
    if (!at || *at < 0 || static_cast<std::size_t>(*at) >= count) {
        throw RequestError(404, "The section " + std::string(name) + " has " + std::to_string(count) +
                                    (count == 1 ? " card" : " cards") + ", and none at that index.");
    }
    return {section->get_array(), static_cast<std::size_t>(*at)};
}

json::value readProfile(Library& library, const Request& request) {
    const auto name = request.text("section");
    if (!name) {
        return {{"sections", sections(library)}};
    }
    if (const json::value* section = findSection(library, *name)) {
        return answer(*name, *section);
    }
    if (std::ranges::count(fieldNames, *name) + std::ranges::count(textNames, *name) +
            std::ranges::count(cardNames, *name) ==
        0) {
        throw RequestError(404, "The profile has no section " + *name + ".");
    }
    return answer(*name, nullptr);
}

json::value editProfileField(Library& library, const Request& request) {
    const std::string_view name = requestedName(request, "field", fieldNames);
    const std::string_view value = requestedText(request, "value");
    return answer(name, sectionToFill(library, name) = value);
}

json::value editProfileText(Library& library, const Request& request) {
    const std::string_view name = requestedName(request, "section", textNames);
    const std::string_view content = requestedText(request, "content");
    return answer(name, sectionToFill(library, name) = content);
}

json::value addProfileCard(Library& library, const Request& request) {
    const std::string_view name = requestedName(request, "section", cardNames);
    const json::object card = requestedCard(request, "card");
    json::value& section = sectionToFill(library, name);
    json::array& cards = section.is_array() ? section.get_array() : section.emplace_array();
    cards.push_back(card);
    return {{"section", name}, {"index", cards.size() - 1}, {"card", card}};
}

json::value updateProfileCard(Library& library, const Request& request) {
    const auto [cards, at] = requestedPlace(library, request);
    for (const auto& [key, value] : requestedCard(request, "updates")) {
        cards[at].as_object()[key] = value;
    }
    return {{"section", text(request.body, "section")}, {"index", at}, {"card", cards[at]}};
}

json::value removeProfileCard(Library& library, const Request& request) {
    const auto [cards, at] = requestedPlace(library, request);
    cards.erase(cards.begin() + static_cast<std::ptrdiff_t>(at));
    return {{"section", text(request.body, "section")}, {"cards", cards}};
}

} // namespace

Endpoints profileEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"GET", "/api/profile", readProfile},
        {"POST", "/api/profile/edit-field", editProfileField},
        {"POST", "/api/profile/edit-text", editProfileText},
        {"POST", "/api/profile/add-card", addProfileCard},
        {"POST", "/api/profile/update-card", updateProfileCard},
        {"POST", "/api/profile/remove-card", removeProfileCard},
    };
    return endpoints;
}

} // namespace sample
