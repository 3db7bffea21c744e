// Paths with a query.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ArgumentParser/DecodedInput.h"
#include "ArgumentParser/ExpressibleByArgument.h"

namespace orvane {

/// The ordered pairs of a query, each said once: `add` for what is always sent, `addIfGiven` for what is sent when the
/// user gave it.
class QueryItems {
public:
    QueryItems& add(std::string_view key, std::string_view value) {
        pairs_.emplace_back(key, value);
        return *this;
    }
    QueryItems& add(std::string_view key, std::int64_t value) { return add(key, std::to_string(value)); }
    QueryItems& add(const QueryItems& items) {
        pairs_.insert(pairs_.end(), items.pairs_.begin(), items.pairs_.end());
        return *this;
    }
    /// The text of an optional input, left out when it wasn't given.
    template <class T>
    QueryItems& addIfGiven(std::string_view key, const argumentparser::DecodedInput<std::optional<T>>& input) {
        return input ? add(key, argumentparser::ArgumentValue<T>::defaultValueDescription(*input)) : *this;
    }
    /// A fixed text, left out unless the flag was given.
    QueryItems& addIfSet(std::string_view key, bool flag, std::string_view value = "true") {
        return flag ? add(key, value) : *this;
    }

    const std::vector<std::pair<std::string, std::string>>& pairs() const { return pairs_; }

private:
    std::vector<std::pair<std::string, std::string>> pairs_;
};

/// `path` and the percent-encoded query of `items`; `path` alone when there are none.
std::string buildQueryPath(std::string_view path, const QueryItems& items);

} // namespace orvane
