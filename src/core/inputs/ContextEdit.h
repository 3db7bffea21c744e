// The edit of a context's text: an exact text replaced by another. The service finds it.
#pragma once

#include "core/inputs/TextInput.h"
#include "core/service/JsonBody.h"

namespace orvane {

/// The request's body. The old text's file is read before the new one's. Throws CLIError for a file that can't be read.
JsonBody contextEditBody(const TextOrFile& oldText, const TextOrFile& newText, bool replaceAll);

} // namespace orvane
