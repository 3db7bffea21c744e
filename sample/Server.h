// The HTTP side of the sample library.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

#include "Exchange.h"

namespace sample {

/// How requests are answered: well by default, badly when asked to.
struct Manners {
    std::chrono::milliseconds delay{};          ///< Passes before each answer.
    std::optional<unsigned> failure{};          ///< The status that every request is refused with.
    bool closes = false;                        ///< Whether connections are closed without an answer.
    std::function<void(const Exchange&)> log{}; ///< Told of each exchange before its answer goes out.
};

/// Serves on the loopback interface until SIGINT or SIGTERM, and calls `ready` with the port once it does. Port 0 takes
/// any free port. Throws std::runtime_error, with a message for the person at the terminal, when there is no port, and
/// what the log throws.
void serve(Library& library, std::uint16_t port, const Manners& manners,
           const std::function<void(std::uint16_t)>& ready);

} // namespace sample
