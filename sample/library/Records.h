// Records of any sort in lists by their word: kept, checked against what their sort allows, created, changed, deleted.
#pragma once

#include <vector>

#include <boost/json/object.hpp>

#include "Request.h"
#include "library/Library.h"

namespace sample {

using Record = boost::json::object;

enum class PropertyType { text, count, object, id, any };

struct Property {
    std::string_view key;
    PropertyType type = PropertyType::text;
    bool required = false;    ///< One that is not can be cleared with null.
    std::string_view of = ""; ///< The list in which an id must be.
};

struct RecordKind {
    std::string_view list; ///< In the data file and in paths.
    std::string_view name; ///< In messages.
    std::vector<Property> properties;
};

// Each of these throws RequestError: 404 for an id that is not in the list, 400 for a body that the kind does not
// allow, 409 for a record that is still in use.

Record& knownRecord(Library& library, const RecordKind& kind, std::string_view id);

/// Adds a record with an id of its own, with what `place` says of where it belongs.
Record& createRecord(Library& library, const RecordKind& kind, const Record& place, const boost::json::object& body);

Record& changeRecord(Library& library, const RecordKind& kind, std::string_view id, const boost::json::object& body);

/// Deletes a record that no other one names.
void removeRecord(Library& library, const RecordKind& kind, std::string_view id);

/// The records that have `value` under `key`, in the order they were made.
std::vector<Record> recordsWith(const Library& library, std::string_view list, std::string_view key,
                                std::string_view value);

/// The "items" of a list, a page of them where the request has a limit, and where the next starts when there are more.
boost::json::object requestedPage(const std::vector<Record>& records, const Request& request,
                                  std::string_view limitKey = "limit", std::string_view startKey = "pageToken",
                                  std::string_view nextKey = "nextPageToken");

} // namespace sample
