// The repositories that a search of coding sessions is narrowed to.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// What "." in a `--repo` value, a path, or a canonical repository key stands for in a request: a full path, or the
/// key as it is.
std::string normalizeRepoArgument(std::string_view value);

/// The repositories of all `--repo` values, of which each may hold several between commas, joined by commas; empty for
/// none.
std::string reposValue(const std::vector<std::string>& values);

} // namespace orvane
