// Where on the command line a value came from.
#pragma once

#include <algorithm>
#include <compare>
#include <cstddef>
#include <optional>
#include <vector>

namespace argumentparser {

/// A place on the command line: the position of a text and, inside a short group such as "-abc", of a character of it.
struct ArgumentIndex {
    std::size_t inputIndex = 0;
    std::optional<std::size_t> subIndex = {}; ///< Nothing for the complete text, which sorts first.

    bool isComplete() const { return !subIndex; }
    auto operator<=>(const ArgumentIndex&) const = default;
};

/// The set of places that one value came from; empty for a declared default.
class InputOrigin {
public:
    InputOrigin() = default;
    explicit InputOrigin(ArgumentIndex index) : indices_{index} {}

    bool isDefaultValue() const { return indices_.empty(); }
    /// In ascending order.
    const std::vector<ArgumentIndex>& indices() const { return indices_; }

    void insert(ArgumentIndex index) {
        const auto place = std::lower_bound(indices_.begin(), indices_.end(), index);
        if (place == indices_.end() || *place != index) {
            indices_.insert(place, index);
        }
    }
    void formUnion(const InputOrigin& other) {
        for (const ArgumentIndex index : other.indices_) {
            insert(index);
        }
    }

private:
    std::vector<ArgumentIndex> indices_;
};

} // namespace argumentparser
