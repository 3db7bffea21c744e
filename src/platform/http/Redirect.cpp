// Written by hand: a URL library costs every run more at start-up than this rare case is worth.
#include "platform/http/Redirect.h"

#include <algorithm>
#include <vector>

#include <arpa/inet.h>
#include <netinet/in.h>

#include "platform/text/Text.h"

namespace platform {

namespace {

constexpr std::uint16_t defaultPort = 80;

bool isLoopback(std::string_view host) {
    if (host == "localhost" || host == "[::1]") {
        return true;
    }
    in_addr address{};
    return ::inet_pton(AF_INET, std::string(host).c_str(), &address) == 1 &&
           ntohl(address.s_addr) >> 24U == IN_LOOPBACKNET;
}

/// The scheme in front of a ":", in lower case; empty for a relative reference.
std::string schemeOf(std::string_view reference) {
    const auto end = reference.find_first_of(":/?#");
    const bool isThere = end != std::string_view::npos && end > 0 && reference[end] == ':';
    return isThere ? lowercased(reference.substr(0, end)) : std::string();
}

/// "localhost:44360" or "[::1]"; nothing unless it is on loopback.
std::optional<HttpLocation> parseAuthority(std::string_view authority) {
    const auto hostEnd =
        std::min(authority.find(':', authority.starts_with('[') ? authority.find(']') : 0), authority.size());
    HttpLocation found{lowercased(authority.substr(0, hostEnd)), defaultPort, {}};
    if (const std::string_view port = authority.substr(hostEnd); port.size() > 1) {
        const auto number = parseNumber<std::uint16_t>(port.substr(1));
        if (!number || *number == 0 || port.starts_with(":+")) {
            return std::nullopt;
        }
        found.port = *number;
    }
    return isLoopback(found.host) ? std::optional(found) : std::nullopt;
}

/// `target` with "." and ".." in its path resolved.
std::string withoutDotSegments(std::string_view target) {
    const auto pathEnd = std::min(target.find('?'), target.size());
    std::vector<std::string_view> kept;
    const auto segments = split(target.substr(0, pathEnd), '/');
    for (std::size_t i = 1; i < segments.size(); ++i) {
        const bool isDots = segments[i] == "." || segments[i] == "..";
        if (segments[i] == ".." && !kept.empty()) {
            kept.pop_back();
        }
        if (!isDots) {
            kept.push_back(segments[i]);
        } else if (i + 1 == segments.size()) {
            kept.emplace_back(); // a directory ends in its separator
        }
    }
    std::string path;
    for (const std::string_view segment : kept) {
        path.append("/").append(segment);
    }
    return (path.empty() ? "/" : path) + std::string(target.substr(pathEnd));
}

/// The target that a reference without an authority names, seen from `base`.
std::string resolveTarget(std::string_view base, std::string_view reference) {
    const std::string_view path = base.substr(0, base.find('?'));
    if (reference.empty()) {
        return std::string(base);
    }
    if (reference.starts_with('/')) {
        return withoutDotSegments(reference);
    }
    if (reference.starts_with('?')) {
        return std::string(path).append(reference);
    }
    return withoutDotSegments(std::string(path.substr(0, path.rfind('/') + 1)).append(reference));
}

} // namespace

std::string hostAndPort(std::string_view host, std::uint16_t port) {
    std::string text(host);
    if (port != defaultPort) {
        text.append(":").append(std::to_string(port));
    }
    return text;
}

std::optional<HttpLocation> resolveRedirect(const HttpLocation& base, std::string_view location) {
    const auto isPrintableAscii = [](char byte) { return byte > ' ' && byte < 0x7F; };
    if (!std::all_of(location.begin(), location.end(), isPrintableAscii)) {
        return std::nullopt;
    }
    std::string_view reference = location.substr(0, location.find('#'));
    if (const std::string scheme = schemeOf(reference); !scheme.empty()) {
        if (scheme != "http") {
            return std::nullopt;
        }
        reference.remove_prefix(scheme.size() + 1);
        if (!reference.starts_with("//")) {
            return std::nullopt;
        }
    }
    if (!reference.starts_with("//")) {
        return HttpLocation{base.host, base.port, resolveTarget(base.target, reference)};
    }
    reference.remove_prefix(2);
    const auto authorityEnd = std::min(reference.find_first_of("/?"), reference.size());
    std::optional<HttpLocation> found = parseAuthority(reference.substr(0, authorityEnd));
    if (found) {
        const std::string_view target = reference.substr(authorityEnd);
        found->target = withoutDotSegments((target.starts_with('/') ? "" : "/") + std::string(target));
    }
    return found;
}

} // namespace platform
