// Where a redirect leads.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// What an http URL on loopback names. `target` is the path with its query.
struct HttpLocation {
    std::string host;
    std::uint16_t port = 80;
    std::string target;
};

/// "host:port" as a Host header has it; the default port is left out.
std::string hostAndPort(std::string_view host, std::uint16_t port);

/// Resolves the value of a Location header against `base`, the URL that was asked. Nothing when it is no URL or leads
/// anywhere but to plain HTTP on loopback.
std::optional<HttpLocation> resolveRedirect(const HttpLocation& base, std::string_view location);

} // namespace platform
