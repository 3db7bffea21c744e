// What the commands of the ontology ask of the service and print. An answer is printed as it came, and an empty one not
// at all. They throw CLIError, or ExitCode behind a reported error.
#pragma once

#include <string>
#include <string_view>

#include "core/service/JsonBody.h"
#include "core/service/Query.h"

namespace orvane {

/// Each `path` is the part behind the family's prefix, such as "spaces/<id>".
void getOntology(std::string_view path, const QueryItems& items = {});
void postOntology(std::string_view path, std::string json);
void postOntology(std::string_view path, JsonBody body);
void patchOntology(std::string_view path, std::string json);

/// PATCH, unless no property was given: then ValidationError.
void patchOntology(std::string_view path, JsonBody body);

/// DELETE; prints the answer.
void deleteOntology(std::string_view path);

/// DELETE of one resource; prints "Deleted <word> <id>" whatever the answer holds.
void deleteOntologyResource(std::string_view collection, std::string_view word, const std::string& id);

} // namespace orvane
