// The paths that the sample library answers.
#pragma once

#include "request.h"

namespace sample {

struct Library;

/// Answers any request; a refusal is an answer too.
Response answer(Library& library, std::string_view method, std::string_view target, std::string body);

} // namespace sample
