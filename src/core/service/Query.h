// Paths with a query.
#pragma once

#include <string>
#include <string_view>

#include "core/CommandModel.h"

namespace orvane {

/// The ordered pairs of a query, each said once: `add` for what is always sent, `addIfGiven` for what is sent when the
/// user gave it.
class QueryItems {
public:
    QueryItems& add(std::string_view key, std::string_view value);
    /// The text of an input that always has a value.
    template <class T>
    QueryItems& add(std::string_view key, const argumentparser::DecodedInput<T>& input) {
        return add(key, argumentparser::ArgumentValue<T>::defaultValueDescription(input.get()));
    }
    QueryItems& add(const QueryItems& items);
    /// The text of an optional input, left out when it wasn't given.
    template <class T>
    QueryItems& addIfGiven(std::string_view key, const argumentparser::DecodedInput<std::optional<T>>& input) {
        return input ? add(key, argumentparser::ArgumentValue<T>::defaultValueDescription(*input)) : *this;
    }
    /// A fixed text, left out unless the flag was given.
    QueryItems& addIfSet(std::string_view key, bool flag, std::string_view value = "true") {
        return flag ? add(key, value) : *this;
    }

    /// The pairs as they stand in a path, percent-encoded: "key=value&key=value".
    const std::string& text() const { return text_; }

private:
    std::string text_;
};

/// `path` and the query of `items`; `path` alone when there are none.
std::string buildQueryPath(std::string_view path, const QueryItems& items);

} // namespace orvane
