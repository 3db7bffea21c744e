// A request and its answer, as a log has them.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "Endpoints.h"

namespace sample {

struct Exchange {
    std::string_view method;
    std::string_view target;
    std::string_view body; ///< Empty when there is none.
    std::chrono::milliseconds took{};
    std::optional<Response> response{}; ///< Nothing when the connection was closed without one.
};

/// Lines for a person at a terminal, and an empty one. A body is cut at a screenful. What would steer the terminal is
/// written as "\u001b", and bytes that are no UTF-8 as U+FFFD.
std::string asBlock(const Exchange& exchange);

/// A line of JSON with the bodies complete. It is as harmless.
std::string asJsonLine(const Exchange& exchange);

} // namespace sample
