// The names by which an input is given on the command line, and how a declaration specifies them.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace argumentparser {

/// One name of an option or flag. Two names are equal when they are written alike.
struct Name {
    enum class Kind {
        longName,           ///< "--text"
        shortName,          ///< "-c"
        longWithSingleDash, ///< "-text"
    };

    Kind kind = Kind::longName;
    std::string text;            ///< Without dashes.
    bool allowingJoined = false; ///< A short name that takes the value "v" in "-cv".

    /// The name with its dashes.
    std::string synopsis() const;

    friend bool operator==(const Name& left, const Name& right) {
        return left.kind == right.kind && left.text == right.text;
    }
};

/// How an input's names come about: each element takes a name from the input's key or gives it literally.
class NameSpecification {
public:
    struct Element {
        enum class Kind { longName, shortName, customLong, customShort };

        Kind kind = Kind::longName;
        std::string_view text = {};  ///< customLong, customShort: the literal name, static.
        bool withSingleDash = false; ///< customLong: "-text".
        bool allowingJoined = false; ///< customShort.

        bool operator==(const Element&) const = default;
    };

    /// No names at all.
    NameSpecification() = default;
    /// The first of each of `elements`.
    NameSpecification(std::initializer_list<Element> elements);

    /// The names of the input with the key `key`, in order.
    std::vector<Name> names(std::string_view key) const;
    /// The long names with `prefix` put ahead in the style of each name, such as "--no-verbose"; short names are kept
    /// unchanged or dropped.
    std::vector<Name> prefixedNames(std::string_view prefix, std::string_view key, bool keepShortNames) const;

private:
    std::vector<Element> elements_;
};

/// The key as it stands: "--page-token".
NameSpecification::Element longName();
/// The key's first character: "-p".
NameSpecification::Element shortName();
NameSpecification::Element customLong(std::string_view text, bool withSingleDash = false);
NameSpecification::Element customShort(std::string_view character, bool allowingJoined = false);

} // namespace argumentparser
