// Settings that a hosting application bundle may give the tool.
#pragma once

#include <optional>
#include <string_view>

namespace platform {

/// A boolean setting: true, false, or nothing when the key is absent or holds another type.
using InfoDictionaryLookup = std::optional<bool> (*)(std::string_view key);

/// The lookup of this platform, which has no bundles: every key is absent.
inline std::optional<bool> infoDictionaryBoolean(std::string_view) {
    return std::nullopt;
}

} // namespace platform
