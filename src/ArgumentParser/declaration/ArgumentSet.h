// Everything that one command accepts on its command line.
#pragma once

#include <vector>

#include "ArgumentParser/declaration/ArgumentDefinition.h"

namespace argumentparser {

/// The definitions of one command in order of declaration. It must not outlive the inputs it was built from.
class ArgumentSet {
public:
    void append(ArgumentDefinition definition) { content_.push_back(std::move(definition)); }

    const std::vector<ArgumentDefinition>& content() const { return content_; }
    /// The first definition that bears `name`; nothing when none does.
    const ArgumentDefinition* find(const Name& name) const;
    /// The first positional with this strategy; nothing when there is none.
    const ArgumentDefinition* findPositional(ParsingStrategy strategy) const;
    /// Whether a positional list here takes everything from the first value on.
    bool capturesForPassthrough() const;

private:
    std::vector<ArgumentDefinition> content_;
};

} // namespace argumentparser
