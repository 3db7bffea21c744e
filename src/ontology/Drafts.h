// JSON that the user wrote for the service: checked to be one object, and sent as its own text.
#pragma once

#include <string>
#include <string_view>

#include "core/CommandModel.h"

namespace orvane {

struct OntologyDraft {
    std::string json; ///< As it was written, without a byte-order mark.
    bool isEmpty;     ///< Whether the object has no keys.
};

/// Reads a draft from a file, whose leading "~" is expanded, or from standard input for "-". Throws CLIError when the
/// file can't be read, and "<label> must contain one JSON object." for anything else than that.
OntologyDraft readOntologyJSONObject(const FilePath& path, std::string_view label);

} // namespace orvane
