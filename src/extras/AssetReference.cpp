#include "extras/AssetReference.h"

#include "core/inputs/Identifiers.h"
#include "platform/text/Text.h"

namespace orvane {

namespace {

constexpr std::string_view canonicalOrigin = "https://assets.orvane.app/";
constexpr const char* noAsset = "asset must be a UUID or canonical assets.orvane.app URL.";

/// What stands in the place of the asset's id in a canonical URL; empty for any other text. A user, a port, a query, a
/// fragment or an escape make another text of it, and so need no look of their own.
std::string_view idInCanonicalURL(std::string_view url) {
    if (!url.starts_with(canonicalOrigin)) {
        return {};
    }
    std::vector<std::string_view> pieces = platform::split(url.substr(canonicalOrigin.size()), '/');
    std::erase(pieces, std::string_view());
    return pieces.size() == 2 && pieces.front() == "v1" ? pieces.back() : std::string_view();
}

} // namespace

std::string resolvedAsset(std::string_view reference) {
    const std::string_view id = isUUID(reference) ? reference : idInCanonicalURL(reference);
    if (!isUUID(id)) {
        throw ValidationError{noAsset};
    }
    return platform::lowercased(id);
}

} // namespace orvane
