// The paths of the ontology: /api/ontology/v2/{list}/{id}/{list below it}.
#include "ontology/Ontology.h"

#include <algorithm>

#include <boost/json.hpp>

#include "Endpoints.h"

namespace sample {

namespace {

/// What a path names below a record. `key` is where a record says which one it belongs to.
struct Below {
    std::string_view parent;
    std::string_view word;
    std::string_view list;
    std::string_view key;
    bool creates = true;
};

constexpr Below places[] = {
    {"spaces", "types", "types", "spaceId"},
    {"spaces", "enum-types", "enum-types", "spaceId"},
    {"spaces", "objects", "objects", "spaceId"},
    {"spaces", "primitive-types", "primitive-types", "", false},
    {"types", "fields", "fields", "typeId"},
    {"types", "objects", "objects", "typeId", false},
    {"fields", "fields", "fields", "parentFieldId"},
    {"enum-types", "cases", "enum-cases", "enumTypeId"},
    {"objects", "assertions", "assertions", "objectId"},
    {"assertions", "children", "assertions", "parentAssertionId"},
};

const std::string& askedList(const Request& request) {
    return request.path.at(3);
}

const std::string& askedId(const Request& request) {
    return request.path.at(4);
}

Record& askedRecord(Library& library, const Request& request) {
    return knownRecord(library, ontologyKind(askedList(request)), askedId(request));
}

/// Throws when the record that it is below does not exist either.
const Below& askedPlace(Library& library, const Request& request) {
    const auto* found = std::ranges::find_if(places, [&](const Below& place) {
        return place.parent == askedList(request) && place.word == request.path.at(5) &&
               (place.creates || request.method == "GET");
    });
    if (found == std::end(places)) {
        throw RequestError(404, "The ontology does not know " + request.method + " of " + request.path.at(5) +
                                    " below the " + askedList(request) + ".");
    }
    if (isReplaced(library, askedRecord(library, request)) && request.method == "POST") {
        throw RequestError(409, "This Assertion has been replaced and takes no more children.");
    }
    return *found;
}

void checkType(const Library& library, const Record& type) {
    std::string_view above = text(type, "inheritsFromTypeId");
    if (!above.empty() && isTypeOf(library, above, text(type, "id"))) {
        throw RequestError(409, "A Type cannot inherit from itself or from a Type below it.");
    }
    const std::string_view shown = text(type, "displayFieldId");
    const auto fields = fieldsOfType(library, text(type, "id"));
    if (!shown.empty() &&
        std::ranges::none_of(fields, [&](const Record& field) { return text(field, "id") == shown; })) {
        throw RequestError(400, "displayFieldId must be a Field that the Type declares or inherits.");
    }
}

void checkRecord(const Library& library, std::string_view list, const Record& record) {
    if (list == "types") {
        checkType(library, record);
    } else if (list == "fields") {
        checkField(library, record);
    } else if (list == "objects") {
        checkObject(library, record);
    }
}

/// The record the way it is answered.
Record shown(const Library& library, std::string_view list, const Record& record) {
    return list == "fields" ? fieldTree(library, record) : record;
}

/// Does all of a change or, when something in it is refused, nothing.
template <typename Change>
json::value changing(Library& library, Change change) {
    const auto before = library.records;
    try {
        return change();
    } catch (...) {
        library.records = before;
        throw;
    }
}

std::string createBelow(Library& library, std::string_view list, const Record& place, const json::object& body) {
    if (list == "fields") {
        return createField(library, place, body);
    }
    if (list == "assertions") {
        return createAssertion(library, place, body);
    }
    const Record record = createRecord(library, ontologyKind(list), place, body);
    checkRecord(library, list, record);
    return std::string(text(record, "id"));
}

json::array& supports(Record& assertion) {
    json::value& nodes = assertion["supportNodeIds"];
    return nodes.is_array() ? nodes.get_array() : nodes.emplace_array();
}

json::value listSpaces(Library& library, const Request& request) {
    return requestedPage(library.records["spaces"], request);
}

json::value createSpace(Library& library, const Request& request) {
    return createRecord(library, ontologyKind("spaces"), {}, request.body);
}

json::value readOntologyRecord(Library& library, const Request& request) {
    return shown(library, askedList(request), askedRecord(library, request));
}

json::value changeOntologyRecord(Library& library, const Request& request) {
    const std::string& list = askedList(request);
    if (list == "assertions") {
        throw RequestError(409, "An Assertion cannot change. Replace it with a new one.");
    }
    return changing(library, [&]() -> json::value {
        const std::string before(text(askedRecord(library, request), "id"));
        const Record record = changeRecord(library, ontologyKind(list), before, request.body);
        checkRecord(library, list, record);
        return shown(library, list, record);
    });
}

json::value removeOntologyRecord(Library& library, const Request& request) {
    removeRecord(library, ontologyKind(askedList(request)), askedId(request));
    return {{"deletedId", askedId(request)}};
}

json::value listBelowRecord(Library& library, const Request& request) {
    const Below& place = askedPlace(library, request);
    std::vector<Record> records;
    if (place.key.empty()) {
        records = library.records[std::string(place.list)];
    } else if (place.key == "typeId" && place.list == "fields") {
        records = fieldsOfType(library, askedId(request));
    } else {
        records = recordsWith(library, place.list, place.key, askedId(request));
        std::erase_if(records, [&](const Record& record) { return isReplaced(library, record); });
        sortByIndex(records);
    }
    for (Record& record : records) {
        record = shown(library, place.list, record);
    }
    return requestedPage(records, request);
}

json::value createBelowRecord(Library& library, const Request& request) {
    const Below& place = askedPlace(library, request);
    return changing(library, [&]() -> json::value {
        const std::string id = createBelow(library, place.list, Record{{place.key, askedId(request)}}, request.body);
        return shown(library, place.list, knownRecord(library, ontologyKind(place.list), id));
    });
}

json::value replaceAssertion(Library& library, const Request& request) {
    return changing(library, [&]() -> json::value {
        const Record old = askedRecord(library, request);
        if (isReplaced(library, old)) {
            throw RequestError(409, "This Assertion has been replaced already.");
        }
        if (text(request.body, "fieldId") != text(old, "fieldId")) {
            throw RequestError(400, "A replacement must be about the same Field.");
        }
        Record place{{"replacesAssertionId", askedId(request)}};
        for (const auto* key : {"objectId", "parentAssertionId"}) {
            if (const json::value* value = old.if_contains(key)) {
                place[key] = *value;
            }
        }
        const std::string id = createAssertion(library, place, request.body);
        for (Record& other : library.records["assertions"]) {
            if (text(other, "parentAssertionId") == askedId(request)) {
                other["parentAssertionId"] = id;
            }
        }
        return knownRecord(library, ontologyKind("assertions"), id);
    });
}

json::value addSupport(Library& library, const Request& request) {
    Record& assertion = askedRecord(library, request);
    const Node* node = library.findNode(text(request.body, "nodeId"));
    if (!node) {
        throw RequestError(404, "No node has the id " + std::string(text(request.body, "nodeId")) + ".");
    }
    if (std::ranges::count(supports(assertion), node->at("id")) > 0) {
        throw RequestError(409, "The node supports this Assertion already.");
    }
    supports(assertion).push_back(node->at("id"));
    return assertion;
}

json::value removeSupport(Library& library, const Request& request) {
    Record& assertion = askedRecord(library, request);
    json::array& nodes = supports(assertion);
    const auto* found = std::ranges::find(nodes, json::value(request.path.at(6)));
    if (found == nodes.end()) {
        throw RequestError(404, "No node " + request.path.at(6) + " supports this Assertion.");
    }
    nodes.erase(found);
    return assertion;
}

} // namespace

Endpoints ontologyEndpoints() {
    static constexpr Endpoint endpoints[] = {
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
    };
    return endpoints;
}

} // namespace sample
