// JSON that the program makes for people and other programs to read.
#pragma once

#include <map>
#include <string>
#include <variant>
#include <vector>

namespace platform {

/// A JSON value that owns what it holds. Objects keep their keys in ascending byte order; texts are UTF-8.
struct JsonTree {
    using Array = std::vector<JsonTree>;
    using Object = std::map<std::string, JsonTree, std::less<>>;

    std::variant<bool, std::int64_t, std::string, Array, Object> value;
};

/// The value as indented JSON.
std::string prettyJson(const JsonTree& tree);

} // namespace platform
