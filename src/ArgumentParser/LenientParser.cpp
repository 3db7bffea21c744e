#include "ArgumentParser/LenientParser.h"

#include <algorithm>

#include "ArgumentParser/ParserError.h"
#include "platform/Text.h"

namespace argumentparser {

namespace {

bool capturesForPassthrough(const Tree& node) {
    if (node.element().construct()->argumentSet().capturesForPassthrough()) {
        return true;
    }
    const auto& defaultSubcommand = node.configuration().defaultSubcommand;
    const Tree* child = defaultSubcommand ? node.child(*defaultSubcommand) : nullptr;
    return child != nullptr && capturesForPassthrough(*child);
}

/// The walk over one command line for the named inputs of one command.
class NamedInputs {
public:
    NamedInputs(const ArgumentSet& arguments, const SplitArguments& input, ParsedValues& values)
        : arguments_(arguments), input_(input), values_(values) {}

    void parse(const Tree& node) {
        const auto& defaultSubcommand = node.configuration().defaultSubcommand;
        const Tree* defaultChild = defaultSubcommand ? node.child(*defaultSubcommand) : nullptr;
        const bool defaultCaptures = defaultChild != nullptr && capturesForPassthrough(*defaultChild);
        const bool captures = defaultCaptures || arguments_.capturesForPassthrough();
        while (!input_.isEmpty()) {
            const SplitArguments::Element element = input_.popFront();
            if (const std::string_view* text = element.text()) {
                if (const Tree* child = node.child(*text)) {
                    const bool childCaptures = capturesForPassthrough(*child);
                    if (!childCaptures && defaultCaptures) {
                        continue;
                    }
                    if (childCaptures) {
                        return;
                    }
                }
                if (captures) {
                    return;
                }
            } else if (const ParsedArgument* option = element.option()) {
                const ArgumentDefinition* definition = arguments_.find(option->name);
                if (definition != nullptr) {
                    record(*definition, *option, element.index);
                } else if (captures && option->name.kind != Name::Kind::longWithSingleDash) {
                    return;
                }
            }
        }
    }

private:
    void record(const ArgumentDefinition& definition, const ParsedArgument& option, ArgumentIndex index) {
        if (const auto* nullary = std::get_if<ArgumentDefinition::NullaryUpdate>(&definition.update)) {
            if (option.value) {
                throw ParserError(
                    UnexpectedValueForOption{InputOrigin(index), option.name, std::string(*option.value)});
            }
            (*nullary)(InputOrigin(index), option.name, values_);
        } else {
            recordValues(definition, option, index);
        }
        // A short group is read either as one name or as its characters.
        input_.remove(index);
    }

    void recordValues(const ArgumentDefinition& definition, const ParsedArgument& option, ArgumentIndex index) {
        const auto update = [&](const InputOrigin& origin, std::string_view value) {
            std::get<ArgumentDefinition::UnaryUpdate>(definition.update)(origin, &option.name, value, values_);
        };
        const bool takesAllRemaining = definition.parsingStrategy == ParsingStrategy::allRemainingInput;
        if (option.value) {
            update(InputOrigin(index), *option.value);
            if (!takesAllRemaining) {
                return;
            }
        } else if (const auto joined = joinedValue(definition, option.name, index)) {
            update(InputOrigin({index.inputIndex}), *joined);
            input_.removePosition(index.inputIndex);
            if (!takesAllRemaining) {
                return;
            }
        }
        switch (definition.parsingStrategy) {
        case ParsingStrategy::nextValue:
            takeNextValue(index, option.name, update);
            break;
        case ParsingStrategy::scanningForValue:
            takeScannedValue(index, option.name, update);
            break;
        case ParsingStrategy::unconditional:
            takeNextPosition(index, option.name, update);
            break;
        case ParsingStrategy::upToNextOption:
            takeUpToNextOption(index, option.name, update);
            break;
        case ParsingStrategy::allRemainingInput:
            takeAllRemaining(index, update);
            if (const InputKey& key = definition.help.keys.front(); values_.find(key) != nullptr) {
                // The name counts as used, even where nothing follows it.
                values_.addOrigin(key, InputOrigin(index));
            }
            break;
        case ParsingStrategy::postTerminator:
        case ParsingStrategy::allUnrecognized:
            throw ParserError(InvalidState());
        }
    }

    /// The rest of a short group behind its first character, for a name that takes its value so.
    std::optional<std::string_view> joinedValue(const ArgumentDefinition& definition, const Name& name,
                                                ArgumentIndex index) const {
        const bool allowsJoined =
            std::any_of(definition.names().begin(), definition.names().end(),
                        [&](const Name& declared) { return declared == name && declared.allowingJoined; });
        if (!allowsJoined || index.subIndex != 0U) {
            return std::nullopt;
        }
        const std::string_view text = input_.originalText(index);
        return text.substr(platform::firstCharacters(text, 2).size());
    }

    /// The first unused element behind the input position of `index`.
    const SplitArguments::Element* nextElement(ArgumentIndex index) const {
        const auto elements = input_.elements();
        const auto found = std::find_if(elements.begin(), elements.end(), [&](const auto& element) {
            return element.index.inputIndex > index.inputIndex;
        });
        return found == elements.end() ? nullptr : &*found;
    }

    template <class Update>
    void takeNextValue(ArgumentIndex index, const Name& name, Update update) {
        const SplitArguments::Element* next = nextElement(index);
        if (next == nullptr || next->text() == nullptr) {
            throw missingValue(index, name);
        }
        takeValue(*next, InputOrigin(index), update);
    }

    template <class Update>
    void takeScannedValue(ArgumentIndex index, const Name& name, Update update) {
        for (const SplitArguments::Element& element : input_.elements()) {
            if (element.isTerminator()) {
                break;
            }
            if (element.text() != nullptr && element.index > index) {
                takeValue(element, InputOrigin(index), update);
                return;
            }
        }
        throw missingValue(index, name);
    }

    template <class Update>
    void takeNextPosition(ArgumentIndex index, const Name& name, Update update) {
        const SplitArguments::Element* next = nextElement(index);
        if (next == nullptr) {
            throw missingValue(index, name);
        }
        takePosition(*next, InputOrigin(index), update);
    }

    template <class Update>
    void takeUpToNextOption(ArgumentIndex index, const Name& name, Update update) {
        input_.remove(index);
        if (input_.isEmpty() || input_.front().text() == nullptr) {
            throw missingValue(index, name);
        }
        while (!input_.isEmpty() && input_.front().text() != nullptr) {
            takeValue(input_.front(), InputOrigin(index), update);
        }
    }

    template <class Update>
    void takeAllRemaining(ArgumentIndex index, Update update) {
        while (const SplitArguments::Element* next = nextElement(index)) {
            takePosition(*next, InputOrigin(index), update);
        }
    }

    template <class Update>
    void takeValue(const SplitArguments::Element& element, InputOrigin origin, Update update) {
        const std::string_view text = *element.text();
        const ArgumentIndex index = element.index;
        origin.insert(index);
        input_.remove(index);
        update(origin, text);
    }

    template <class Update>
    void takePosition(const SplitArguments::Element& element, InputOrigin origin, Update update) {
        const ArgumentIndex position{element.index.inputIndex};
        origin.insert(position);
        input_.remove(position);
        update(origin, input_.originalText(position));
    }

    ParserError missingValue(ArgumentIndex index, const Name& name) const {
        if (index.isComplete()) {
            return MissingValueForOption{InputOrigin(index), name};
        }
        std::string_view group = input_.originalText(index);
        group = group.substr(1, group.find('=') - 1);
        return MissingValueOrUnknownCompositeOption{
            InputOrigin(index), name, {Name::Kind::longWithSingleDash, std::string(group)}};
    }

    const ArgumentSet& arguments_;
    SplitArguments input_;
    ParsedValues& values_;
};

void recordPositional(const ArgumentDefinition& definition, const SplitArguments::Element& element,
                      const SplitArguments& input, ParsedValues& values) {
    const std::string_view text = element.text() != nullptr ? *element.text() : input.originalText(element.index);
    std::get<ArgumentDefinition::UnaryUpdate>(definition.update)(InputOrigin(element.index), nullptr, text, values);
}

const ArgumentDefinition* findPositional(const ArgumentSet& arguments, ParsingStrategy strategy) {
    const auto& content = arguments.content();
    const auto found = std::find_if(content.begin(), content.end(), [&](const ArgumentDefinition& definition) {
        return definition.isPositional() && definition.parsingStrategy == strategy;
    });
    return found == content.end() ? nullptr : &*found;
}

void parsePositionals(const ArgumentSet& arguments, const SplitArguments& input, ParsedValues& values) {
    std::vector<const SplitArguments::Element*> elements;
    for (const SplitArguments::Element& element : input.elements()) {
        if (element.index.isComplete()) {
            elements.push_back(&element);
        }
    }
    auto end = elements.end();
    if (const auto* definition = findPositional(arguments, ParsingStrategy::postTerminator)) {
        end =
            std::find_if(elements.begin(), elements.end(), [](const auto* element) { return element->isTerminator(); });
        for (auto element = end; element != elements.end(); ++element) {
            if ((*element)->text() != nullptr) {
                recordPositional(*definition, **element, input, values);
            }
        }
    }
    auto next = elements.begin();
    for (const ArgumentDefinition& definition : arguments.content()) {
        const bool takesOptions = definition.parsingStrategy == ParsingStrategy::allRemainingInput;
        if (!definition.isPositional() || (!takesOptions && definition.parsingStrategy != ParsingStrategy::nextValue)) {
            continue;
        }
        do {
            next = std::find_if(next, end, [&](const auto* element) {
                return element->text() != nullptr || (takesOptions && element->option() != nullptr);
            });
            if (next == end) {
                return;
            }
            recordPositional(definition, **next++, input, values);
        } while (definition.isRepeatingPositional());
    }
}

} // namespace

ParsedValues parseLeniently(const ArgumentSet& arguments, const SplitArguments& input, const Tree& node) {
    ParsedValues values;
    if (arguments.content().empty()) {
        return values;
    }
    for (const ArgumentDefinition& definition : arguments.content()) {
        if (definition.initial) {
            definition.initial(values);
        }
    }
    NamedInputs(arguments, input, values).parse(node);
    SplitArguments unused = input;
    unused.remove(values.allOrigins());
    parsePositionals(arguments, unused, values);
    return values;
}

bool capturesUnrecognized(const ArgumentSet& arguments) {
    return findPositional(arguments, ParsingStrategy::allUnrecognized) != nullptr;
}

void captureUnrecognized(const ArgumentSet& arguments, const SplitArguments& input, ParsedValues& values) {
    const ArgumentDefinition* definition = findPositional(arguments, ParsingStrategy::allUnrecognized);
    if (definition == nullptr) {
        return;
    }
    for (const SplitArguments::Element& element : input.elements()) {
        const bool isPartOfUnusedGroup =
            !element.index.isComplete() &&
            std::any_of(input.elements().begin(), input.elements().end(), [&](const SplitArguments::Element& other) {
                return other.index == ArgumentIndex{element.index.inputIndex};
            });
        if (element.isTerminator() || isPartOfUnusedGroup) {
            continue;
        }
        if (element.index.isComplete()) {
            recordPositional(*definition, element, input, values);
        } else {
            const std::string text = element.option()->name.synopsis();
            std::get<ArgumentDefinition::UnaryUpdate>(definition->update)(InputOrigin(element.index), nullptr, text,
                                                                          values);
        }
    }
}

} // namespace argumentparser
