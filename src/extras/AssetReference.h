// What names an image of a context on a command line.
#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// The id of the asset that a UUID or a canonical URL names, in lower case. Throws ValidationError.
std::string resolvedAsset(std::string_view reference);

} // namespace orvane
