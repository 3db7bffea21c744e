#include "ArgumentParser/declaration/ArgumentSet.h"

#include <algorithm>

namespace argumentparser {

namespace {

template <class Predicate>
const ArgumentDefinition* firstOf(const std::vector<ArgumentDefinition>& definitions, Predicate predicate) {
    const auto found = std::find_if(definitions.begin(), definitions.end(), predicate);
    return found == definitions.end() ? nullptr : &*found;
}

} // namespace

const ArgumentDefinition* ArgumentSet::find(const Name& name) const {
    return firstOf(content_, [&](const ArgumentDefinition& definition) {
        return std::find(definition.names.begin(), definition.names.end(), name) != definition.names.end();
    });
}

const ArgumentDefinition* ArgumentSet::findPositional(ParsingStrategy strategy) const {
    return firstOf(content_, [&](const ArgumentDefinition& definition) {
        return definition.isPositional() && definition.parsingStrategy == strategy;
    });
}

bool ArgumentSet::capturesForPassthrough() const {
    return std::any_of(content_.begin(), content_.end(), [](const ArgumentDefinition& definition) {
        return definition.isRepeatingPositional() && definition.parsingStrategy == ParsingStrategy::allRemainingInput;
    });
}

} // namespace argumentparser
