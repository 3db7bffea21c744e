// The command line, split into options, values and the terminator, with an account of what has been used.
#pragma once

#include <optional>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "ArgumentParser/declaration/Name.h"
#include "ArgumentParser/declaration/Occurrence.h"

namespace argumentparser {

/// An option as it was written: its name, and the value attached to it by "=".
struct ParsedArgument {
    Name name;
    std::optional<std::string_view> value = {};
};

/// The elements in order; for one input position the complete text comes before the characters of its short group.
/// Texts are views of the original input, which must outlive this.
class SplitArguments {
public:
    struct Terminator {};

    struct Element {
        std::variant<ParsedArgument, std::string_view, Terminator> value;
        ArgumentIndex index;
        bool isUsed = false;

        const ParsedArgument* option() const { return std::get_if<ParsedArgument>(&value); }
        const std::string_view* text() const { return std::get_if<std::string_view>(&value); }
        bool isTerminator() const { return std::holds_alternative<Terminator>(value); }
    };

    /// Throws ParserError: InvalidOption or NonAlphanumericShortOption.
    explicit SplitArguments(std::span<const std::string_view> arguments);

    std::string_view originalText(ArgumentIndex index) const { return originalInput_[index.inputIndex]; }

    /// Used and unused ones.
    const std::vector<Element>& elements() const { return elements_; }
    /// The element of the complete text.
    const Element& complete(ArgumentIndex index) const { return elements_[offsets_[index.inputIndex]]; }
    /// The offset among the elements of the first one behind an input position.
    std::size_t offsetBehind(std::size_t inputIndex) const { return offsets_[inputIndex + 1]; }
    /// Nothing when all are used.
    const Element* firstUnused() const;
    std::size_t unusedCount() const;

    /// A used character of a short group uses up the complete group, and a used complete text its characters.
    void markUsed(ArgumentIndex index);

private:
    void splitText(std::size_t position);
    void splitSingleDashOption(std::size_t position, std::string_view remainder);

    std::span<const std::string_view> originalInput_;
    std::vector<Element> elements_;
    std::vector<std::size_t> offsets_; ///< Of each input position's first element, and the number of all.
};

} // namespace argumentparser
