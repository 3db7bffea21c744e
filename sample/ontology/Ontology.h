// What holds in the ontology, beyond what records allow by themselves. Refusals are thrown as RequestError.
#pragma once

#include <boost/json/object.hpp>

#include "library/Library.h"
#include "library/Records.h"

namespace sample {

/// The kind of the records in a list such as "enum-types".
const RecordKind& ontologyKind(std::string_view list);

/// The Fields of a Type, those of the Types it inherits from first.
std::vector<Record> fieldsOfType(const Library& library, std::string_view typeId);

/// Whether the Type is `ancestorId` or inherits from it.
bool isTypeOf(const Library& library, std::string_view typeId, std::string_view ancestorId);

void sortByIndex(std::vector<Record>& records);

/// A Field with its children below it.
Record fieldTree(const Library& library, Record field);

/// Creates a Field from a draft with children of any depth under "fields".
std::string createField(Library& library, const Record& place, boost::json::object draft);
void checkField(const Library& library, const Record& field);

/// Creates an Assertion from a draft, which may name supporting nodes under "supportNodeIds".
std::string createAssertion(Library& library, const Record& place, boost::json::object draft);
bool isReplaced(const Library& library, const Record& assertion);

/// Whether an Object can have what is asserted of it, as after a change of its Type.
void checkObject(const Library& library, const Record& object);

} // namespace sample
