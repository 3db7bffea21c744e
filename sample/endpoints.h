// The paths that the sample library answers.
#pragma once

#include <string>
#include <string_view>

namespace sample {

struct Library;

struct Response {
    unsigned status = 200;
    std::string body;
};

/// Answers any request; a refusal is an answer too.
Response answer(Library& library, std::string_view method, std::string_view target, std::string_view body);

} // namespace sample
