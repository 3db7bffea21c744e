// What may be asserted of an Object.
#include <algorithm>

#include <boost/json.hpp>

#include "ontology/Ontology.h"

namespace sample {

namespace json = boost::json;

namespace {

/// The only record with the id.
Record recordOf(const Library& library, std::string_view list, std::string_view id) {
    return recordsWith(library, list, "id", id).at(0);
}

bool isOfJsonType(const json::value& value, std::string_view type) {
    return (type == "string" && value.is_string()) || (type == "number" && value.is_number()) ||
           (type == "boolean" && value.is_bool());
}

bool fits(const Library& library, const json::object& definition, const json::value& value) {
    const std::string_view kind = text(definition, "kind");
    const std::string_view id = value.is_string() ? std::string_view(value.get_string()) : "";
    if (kind == "compound") {
        return value.is_null();
    }
    if (kind == "primitive") {
        const Record type = recordOf(library, "primitive-types", text(definition, "primitiveTypeId"));
        return isOfJsonType(value, text(type, "jsonType"));
    }
    const auto named = recordsWith(library, kind == "enum" ? "enum-cases" : "objects", "id", id);
    return !named.empty() &&
           (kind == "enum" ? text(named.front(), "enumTypeId") == text(definition, "enumTypeId")
                           : isTypeOf(library, text(named.front(), "typeId"), text(definition, "typeId")));
}

/// The Fields that Assertions at this place can be about.
std::vector<Record> possibleFields(const Library& library, const Record& assertion) {
    if (const std::string_view parent = text(assertion, "parentAssertionId"); !parent.empty()) {
        return recordsWith(library, "fields", "parentFieldId",
                           text(recordOf(library, "assertions", parent), "fieldId"));
    }
    const Record object = recordOf(library, "objects", text(assertion, "objectId"));
    return fieldsOfType(library, text(object, "typeId"));
}

void checkAssertion(const Library& library, const Record& assertion) {
    const auto fields = possibleFields(library, assertion);
    const auto field =
        std::ranges::find(fields, text(assertion, "fieldId"), [](const Record& each) { return text(each, "id"); });
    if (field == fields.end()) {
        throw RequestError(400, "fieldId must be a Field that can be asserted here.");
    }
    const json::value* value = assertion.if_contains("value");
    if (!fits(library, field->at("definition").as_object(), value ? *value : json::value())) {
        throw RequestError(400, "The value does not fit the definition of the Field " +
                                    std::string(text(*field, "name")) + ".");
    }
    const auto* key = assertion.contains("objectId") ? "objectId" : "parentAssertionId";
    auto same = recordsWith(library, "assertions", key, text(assertion, key));
    std::erase_if(same, [&](const Record& each) {
        return text(each, "fieldId") != text(*field, "id") || isReplaced(library, each);
    });
    const json::value* most = field->if_contains("maxCount");
    if (most && std::ssize(same) > most->as_int64()) {
        throw RequestError(409, "The Field " + std::string(text(*field, "name")) + " can be asserted at most " +
                                    std::to_string(most->as_int64()) + " times here.");
    }
}

json::array knownNodeIds(const Library& library, const json::value& given) {
    json::array ids;
    for (const json::value& id : given.is_array() ? given.get_array() : json::array{given}) {
        const Node* node = id.is_string() ? library.findNode(id.get_string()) : nullptr;
        if (!node) {
            throw RequestError(400, "supportNodeIds must be a list of ids of nodes.");
        }
        ids.push_back(node->at("id"));
    }
    return ids;
}

} // namespace

bool isReplaced(const Library& library, const Record& assertion) {
    return !recordsWith(library, "assertions", "replacesAssertionId", text(assertion, "id")).empty();
}

std::string createAssertion(Library& library, const Record& place, json::object draft) {
    const json::value* given = draft.if_contains("supportNodeIds");
    json::array nodes = given ? knownNodeIds(library, *given) : json::array();
    draft.erase("supportNodeIds");
    Record& assertion = createRecord(library, ontologyKind("assertions"), place, draft);
    assertion["supportNodeIds"] = std::move(nodes);
    checkAssertion(library, assertion);
    return std::string(text(assertion, "id"));
}

void checkObject(const Library& library, const Record& object) {
    const auto fields = fieldsOfType(library, text(object, "typeId"));
    for (const Record& assertion : recordsWith(library, "assertions", "objectId", text(object, "id"))) {
        if (!isReplaced(library, assertion) && std::ranges::none_of(fields, [&](const Record& field) {
                return field.at("id") == assertion.at("fieldId");
            })) {
            throw RequestError(409, "The Object has Assertions about Fields that the Type does not have.");
        }
    }
}

} // namespace sample
