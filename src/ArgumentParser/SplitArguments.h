// The command line, split into options, values and the terminator, with what has been consumed taken out.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "ArgumentParser/InputOrigin.h"
#include "ArgumentParser/Name.h"

namespace argumentparser {

/// An option as it was written: its name, and the value attached to it by "=".
struct ParsedArgument {
    Name name;
    std::optional<std::string_view> value = {};
};

/// The elements that are still unused, in order; for one input position the complete text comes before the characters
/// of its short group. Texts are views of the original input, which must outlive this.
class SplitArguments {
public:
    struct Terminator {};

    struct Element {
        std::variant<ParsedArgument, std::string_view, Terminator> value;
        ArgumentIndex index;

        const ParsedArgument* option() const { return std::get_if<ParsedArgument>(&value); }
        const std::string_view* text() const { return std::get_if<std::string_view>(&value); }
        bool isTerminator() const { return std::holds_alternative<Terminator>(value); }
    };

    /// Throws ParserError: InvalidOption or NonAlphanumericShortOption.
    explicit SplitArguments(std::span<const std::string> arguments);

    std::span<const std::string> originalInput() const { return originalInput_; }
    const std::string& originalText(ArgumentIndex index) const { return originalInput_[index.inputIndex]; }

    bool isEmpty() const { return firstUnused_ == elements_.size(); }
    std::span<const Element> elements() const { return std::span(elements_).subspan(firstUnused_); }
    const Element& front() const { return elements_[firstUnused_]; }
    /// Takes the first element out. Only when there is one.
    Element popFront() { return std::move(elements_[firstUnused_++]); }

    /// Takes out the elements of `origin`: a character of a short group takes the complete group with it, and a
    /// complete text its characters.
    void remove(const InputOrigin& origin);
    void remove(ArgumentIndex index);
    /// Takes out everything at one input position.
    void removePosition(std::size_t inputIndex);

private:
    template <class Predicate>
    void removeIf(Predicate predicate);
    void splitText(std::size_t position);
    void splitSingleDashOption(std::size_t position, std::string_view remainder);

    std::span<const std::string> originalInput_;
    std::vector<Element> elements_;
    std::size_t firstUnused_ = 0;
};

} // namespace argumentparser
