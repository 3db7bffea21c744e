// What becomes of a URL or a part of one. Each line of an input is a redirect's Location, a query's text and an asset's
// name.
#include <cstring>

#include <arpa/inet.h>
#include <netinet/in.h>

#include "Target.h"
#include "core/inputs/Identifiers.h"
#include "core/service/Query.h"
#include "extras/AssetReference.h"
#include "platform/http/Redirect.h"
#include "platform/text/Text.h"

namespace {

bool isLoopbackAddress(const std::string& host) {
    in_addr address{};
    return host == "localhost" || host == "[::1]" ||
           (::inet_pton(AF_INET, host.c_str(), &address) == 1 && ntohl(address.s_addr) >> 24U == IN_LOOPBACKNET);
}

void checkRedirect(std::string_view location) {
    const platform::HttpLocation base{"localhost", 44360, "/api/nodes?limit=5"};
    const auto found = platform::resolveRedirect(base, location);
    if (!found) {
        return;
    }
    fuzz::require(isLoopbackAddress(found->host) && found->port != 0, "a redirect leads to loopback");
    fuzz::require(found->target.starts_with('/'), "a target is a path from the root");
    const bool isPlain = std::all_of(found->target.begin(), found->target.end(),
                                     [](char byte) { return byte > ' ' && byte < 0x7F && byte != '#'; });
    fuzz::require(isPlain, "a target stays in its line of the request");
    const auto again =
        platform::resolveRedirect(base, "http://" + platform::hostAndPort(found->host, found->port) + found->target);
    fuzz::require(again && again->host == found->host && again->port == found->port && again->target == found->target,
                  "where a redirect leads is where it leads");
}

std::string decoded(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += text[i] == '%' ? 3 : 1) {
        const bool isEscape = text[i] == '%';
        bytes += isEscape ? static_cast<char>(std::stoi(std::string(text.substr(i + 1, 2)), nullptr, 16)) : text[i];
    }
    return bytes;
}

void checkQuery(std::string_view key, std::string_view value) {
    orvane::QueryItems items;
    const std::string text = items.add(key, value).add("b", "").text();
    for (const char byte : text) {
        const bool isAlphanumeric = (byte >= '0' && byte <= '9') || ((byte | 0x20) >= 'a' && (byte | 0x20) <= 'z');
        fuzz::require(isAlphanumeric || std::strchr("-._~!$'()*,;:@/%=&", byte) != nullptr, "a query is plain");
    }
    const auto pairs = platform::split(text, '&');
    fuzz::require(pairs.size() == 2 && pairs.back() == "b=", "a pair is one pair");
    const auto sides = platform::split(pairs.front(), '=');
    fuzz::require(sides.size() == 2 && decoded(sides.front()) == key && decoded(sides.back()) == value,
                  "a pair reads as it was");
}

void checkAsset(std::string_view reference) {
    try {
        const std::string id = orvane::resolvedAsset(reference);
        fuzz::require(orvane::isUUID(id) && id == platform::lowercased(id), "an asset's id is a UUID in lower case");
        fuzz::require(reference.size() == id.size() || reference.starts_with("https://assets.orvane.app/"),
                      "an asset is named by its id or its URL");
        fuzz::require(platform::lowercased(reference).find(id) != std::string::npos, "the id is the reference's");
    } catch (const argumentparser::ValidationError&) {
        fuzz::require(!orvane::isUUID(reference), "a UUID names an asset");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    std::string_view last;
    while (!input.rest().empty()) {
        const std::string_view line = input.line();
        checkRedirect(line);
        checkQuery(last, line);
        checkAsset(line);
        last = line;
    }
    return 0;
}
