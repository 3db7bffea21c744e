// The HTTP side of the sample library.
#pragma once

#include <cstdint>
#include <functional>

namespace sample {

struct Library;

/// Serves on the loopback interface until SIGINT or SIGTERM, and calls `ready` with the port once it does. Port 0 takes
/// any free port. Throws std::runtime_error, with a message for the person at the terminal, when there is no port.
void serve(Library& library, std::uint16_t port, const std::function<void(std::uint16_t)>& ready);

} // namespace sample
