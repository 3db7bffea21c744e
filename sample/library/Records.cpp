#include "library/Records.h"

#include <algorithm>

#include <boost/json.hpp>
#include <boost/uuid/uuid_generators.hpp>
#include <boost/uuid/uuid_io.hpp>

namespace sample {

namespace json = boost::json;

namespace {

bool isInList(const Library& library, std::string_view list, std::string_view id) {
    return !recordsWith(library, list, "id", id).empty();
}

/// What is wrong with the value of a property, empty when nothing is.
std::string complaint(const Library& library, const Property& property, const json::value& value) {
    switch (property.type) {
    case PropertyType::text:
        return value.is_string() && !value.get_string().empty() ? "" : "must be a text, and not empty";
    case PropertyType::count:
        return value.is_int64() && value.get_int64() >= 0 ? "" : "must be a whole number, and not negative";
    case PropertyType::object:
        return value.is_object() ? "" : "must be an object";
    case PropertyType::id:
        return value.is_string() && isInList(library, property.of, value.get_string())
                   ? ""
                   : "must be an id among the " + std::string(property.of);
    case PropertyType::any:
        return "";
    }
    return "";
}

void takeProperties(const Library& library, const RecordKind& kind, Record& record, const json::object& body) {
    for (const auto& member : body) {
        const std::string_view key = member.key();
        const json::value& value = member.value();
        const auto property = std::ranges::find(kind.properties, key, &Property::key);
        if (property == kind.properties.end()) {
            throw RequestError(400, std::string(kind.name) + " has no property " + std::string(key) + " to set.");
        }
        if (value.is_null() && !property->required) {
            record.erase(key);
            continue;
        }
        if (const std::string wrong = complaint(library, *property, value); !wrong.empty()) {
            throw RequestError(400, std::string(key) + " " + wrong + ".");
        }
        record[key] = value;
    }
}

/// Whether the text occurs anywhere in the value.
bool names(const json::value& value, std::string_view text) {
    if (const json::object* object = value.if_object()) {
        return std::ranges::any_of(*object, [&](const auto& member) { return names(member.value(), text); });
    }
    if (const json::array* array = value.if_array()) {
        return std::ranges::any_of(*array, [&](const json::value& element) { return names(element, text); });
    }
    return value.is_string() && value.get_string() == text;
}

} // namespace

Record& knownRecord(Library& library, const RecordKind& kind, std::string_view id) {
    auto& records = library.records[std::string(kind.list)];
    const auto found = std::ranges::find(records, id, [](const Record& record) { return text(record, "id"); });
    if (found == records.end()) {
        throw RequestError(404, "No " + std::string(kind.name) + " has the id " + std::string(id) + ".");
    }
    return *found;
}

Record& createRecord(Library& library, const RecordKind& kind, const Record& place, const json::object& body) {
    Record record{{"id", to_string(boost::uuids::random_generator()())}};
    record.insert(place.begin(), place.end());
    takeProperties(library, kind, record, body);
    for (const Property& property : kind.properties) {
        if (property.required && !record.contains(property.key)) {
            throw RequestError(400, std::string(kind.name) + " needs a " + std::string(property.key) + ".");
        }
    }
    return library.records[std::string(kind.list)].emplace_back(std::move(record));
}

Record& changeRecord(Library& library, const RecordKind& kind, std::string_view id, const json::object& body) {
    Record& record = knownRecord(library, kind, id);
    Record changed = record;
    takeProperties(library, kind, changed, body);
    return record = std::move(changed);
}

void removeRecord(Library& library, const RecordKind& kind, std::string_view id) {
    const Record& doomed = knownRecord(library, kind, id);
    for (const auto& [list, records] : library.records) {
        for (const Record& other : records) {
            if (&other != &doomed && names(other, id)) {
                throw RequestError(409, "This " + std::string(kind.name) + " is in use: one of the " + list + ", " +
                                            std::string(text(other, "id")) + ", names it.");
            }
        }
    }
    std::erase_if(library.records[std::string(kind.list)],
                  [&](const Record& record) { return text(record, "id") == id; });
}

std::vector<Record> recordsWith(const Library& library, std::string_view list, std::string_view key,
                                std::string_view value) {
    std::vector<Record> found;
    if (const auto records = library.records.find(std::string(list)); records != library.records.end()) {
        std::ranges::copy_if(records->second, std::back_inserter(found),
                             [&](const Record& record) { return text(record, key) == value; });
    }
    return found;
}

json::object requestedPage(const std::vector<Record>& records, const Request& request, std::string_view limitKey,
                           std::string_view startKey, std::string_view nextKey) {
    const std::size_t limit = request.number(limitKey, records.size());
    if (request.text(limitKey) && (limit < 1 || limit > 200)) {
        throw RequestError(400, std::string(limitKey) + " must be between 1 and 200.");
    }
    const std::size_t first = std::min(request.number(startKey, 0), records.size());
    const std::size_t next = first + std::min(limit, records.size() - first);
    json::array items;
    for (std::size_t at = first; at < next; ++at) {
        items.push_back(records[at]);
    }
    json::object page{{"items", std::move(items)}};
    if (next < records.size()) {
        page[nextKey] = std::to_string(next);
    }
    return page;
}

} // namespace sample
