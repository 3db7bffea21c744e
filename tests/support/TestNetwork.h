// Keeps test programs that use the same fixed port out of each other's way.
#pragma once

namespace testsupport {

/// Moves the process into a network of its own where the system allows it, and otherwise waits for a lock that one
/// test program at a time holds. To be called before any thread starts. Throws std::system_error, and
/// std::runtime_error when somebody else serves on the application's port of the network that all share.
void isolateNetwork();

/// Whether the network is this process's own, so that a test may change its settings.
bool networkIsOwn();

/// Whether loopback has its IPv6 address.
bool hasIPv6();

} // namespace testsupport
