// JSON for people to read.
#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

namespace platform {

struct JsonNumber {
    std::string text; ///< As it was written.
};

/// A JSON value that owns what it holds; null unless it is given something. Objects keep their keys in ascending byte
/// order; texts are UTF-8.
struct JsonTree {
    using Array = std::vector<JsonTree>;
    using Object = std::map<std::string, JsonTree, std::less<>>;

    std::variant<std::monostate, bool, JsonNumber, std::string, Array, Object> value = {};
};

/// The value as indented JSON, with its numbers as `prettyJsonNumber` writes them.
std::string prettyJson(const JsonTree& tree);

} // namespace platform
