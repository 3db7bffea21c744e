// The Types and Fields of the ontology, and what may be in its records.
#include <algorithm>
#include <limits>

#include <boost/json.hpp>

#include "ontology/Ontology.h"

namespace sample {

namespace json = boost::json;

namespace {

std::vector<Property> named(std::vector<Property> more = {}) {
    std::vector<Property> all{{"name", PropertyType::text, true}, {"emoji"}, {"description"}};
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

const std::vector<RecordKind>& kinds() {
    static const std::vector<RecordKind> all{
        {"spaces", "Space", named()},
        {"types", "Type",
         named({{"inheritsFromTypeId", PropertyType::id, false, "types"},
                {"displayFieldId", PropertyType::id, false, "fields"}})},
        {"fields", "Field",
         named({{"minCount", PropertyType::count},
                {"maxCount", PropertyType::count},
                {"sortIndex", PropertyType::count},
                {"definition", PropertyType::object, true}})},
        {"enum-types", "EnumType", named()},
        {"enum-cases", "EnumCase", named({{"sortIndex", PropertyType::count}})},
        {"objects", "Object", {{"typeId", PropertyType::id, true, "types"}}},
        {"assertions", "Assertion", {{"fieldId", PropertyType::id, true, "fields"}, {"value", PropertyType::any}}},
    };
    return all;
}

/// A kind of Field, and the list in which what its definition names must be.
struct Definition {
    std::string_view kind;
    std::string_view key;
    std::string_view list;
};

constexpr Definition definitions[] = {
    {"primitive", "primitiveTypeId", "primitive-types"},
    {"reference", "typeId", "types"},
    {"enum", "enumTypeId", "enum-types"},
    {"compound", "", ""},
};

std::int64_t number(const Record& record, std::string_view key, std::int64_t fallback) {
    const json::value* value = record.if_contains(key);
    return value && value->is_int64() ? value->get_int64() : fallback;
}

} // namespace

const RecordKind& ontologyKind(std::string_view list) {
    const auto found = std::ranges::find(kinds(), list, &RecordKind::list);
    if (found == kinds().end()) {
        throw RequestError(404, "The ontology has no " + std::string(list) + ".");
    }
    return *found;
}

void sortByIndex(std::vector<Record>& records) {
    std::ranges::stable_sort(records, {}, [](const Record& record) { return number(record, "sortIndex", 0); });
}

std::vector<Record> fieldsOfType(const Library& library, std::string_view typeId) {
    std::vector<Record> fields;
    for (const Record& type : recordsWith(library, "types", "id", typeId)) {
        if (const std::string_view above = text(type, "inheritsFromTypeId"); !above.empty()) {
            fields = fieldsOfType(library, above);
        }
    }
    std::vector<Record> declared = recordsWith(library, "fields", "typeId", typeId);
    sortByIndex(declared);
    fields.insert(fields.end(), declared.begin(), declared.end());
    return fields;
}

bool isTypeOf(const Library& library, std::string_view typeId, std::string_view ancestorId) {
    if (typeId == ancestorId) {
        return true;
    }
    const auto types = recordsWith(library, "types", "id", typeId);
    const std::string_view above = types.empty() ? "" : text(types.front(), "inheritsFromTypeId");
    return !above.empty() && isTypeOf(library, above, ancestorId);
}

Record fieldTree(const Library& library, Record field) {
    std::vector<Record> children = recordsWith(library, "fields", "parentFieldId", text(field, "id"));
    sortByIndex(children);
    json::array trees;
    for (const Record& child : children) {
        trees.push_back(fieldTree(library, child));
    }
    if (text(field.at("definition").as_object(), "kind") == "compound") {
        field["fields"] = std::move(trees);
    }
    return field;
}

void checkField(const Library& library, const Record& field) {
    const json::object& definition = field.at("definition").as_object();
    const auto* expected = std::ranges::find(definitions, text(definition, "kind"), &Definition::kind);
    if (expected == std::end(definitions)) {
        throw RequestError(400, "A definition's kind must be primitive, reference, enum or compound.");
    }
    if (!expected->key.empty() && recordsWith(library, expected->list, "id", text(definition, expected->key)).empty()) {
        throw RequestError(400, "The definition's " + std::string(expected->key) + " must be an id among the " +
                                    std::string(expected->list) + ".");
    }
    if (number(field, "minCount", 0) > number(field, "maxCount", std::numeric_limits<std::int64_t>::max())) {
        throw RequestError(400, "minCount must not be above maxCount.");
    }
    if (expected->kind != "compound" && !recordsWith(library, "fields", "parentFieldId", text(field, "id")).empty()) {
        throw RequestError(409, "A Field with children must stay compound.");
    }
    for (const Record& parent : recordsWith(library, "fields", "id", text(field, "parentFieldId"))) {
        if (text(parent.at("definition").as_object(), "kind") != "compound") {
            throw RequestError(409, "Only a compound Field can have children.");
        }
    }
}

std::string createField(Library& library, const Record& place, json::object draft) {
    const json::value* given = draft.if_contains("fields");
    const json::value children = given ? *given : json::array();
    draft.erase("fields");
    if (!children.is_array() ||
        std::ranges::any_of(children.get_array(), [](const auto& child) { return !child.is_object(); })) {
        throw RequestError(400, "fields must be a list of Field drafts.");
    }
    const Record field = createRecord(library, ontologyKind("fields"), place, draft);
    checkField(library, field);
    for (const json::value& child : children.get_array()) {
        createField(library, Record{{"parentFieldId", field.at("id")}}, child.get_object());
    }
    return std::string(text(field, "id"));
}

} // namespace sample
