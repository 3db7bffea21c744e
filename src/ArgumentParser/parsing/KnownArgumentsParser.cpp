#include "ArgumentParser/parsing/KnownArgumentsParser.h"

#include <algorithm>

#include "ArgumentParser/ParsableCommand.h"
#include "ArgumentParser/declaration/ParserError.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

using Element = SplitArguments::Element;

const Tree* defaultChild(const Tree& node) {
    const auto& defaultSubcommand = node.configuration().defaultSubcommand;
    return defaultSubcommand ? node.child(*defaultSubcommand) : nullptr;
}

bool capturesForPassthrough(const Tree& node) {
    if (node.element().construct()->argumentSet().capturesForPassthrough()) {
        return true;
    }
    const Tree* child = defaultChild(node);
    return child != nullptr && capturesForPassthrough(*child);
}

/// The walk over one command line for the named inputs of one command. Ahead of the walk elements are used from the
/// front or, by scanning, value by value; two marks that only move on find the next one without looking twice.
class NamedInputs {
public:
    NamedInputs(const ArgumentSet& arguments, SplitArguments& input)
        : arguments_(arguments), input_(input), elements_(input.elements()) {}

    void parse(const Tree& node) {
        const Tree* child = defaultChild(node);
        const bool defaultCaptures = child != nullptr && capturesForPassthrough(*child);
        const bool captures = defaultCaptures || arguments_.capturesForPassthrough();
        for (current_ = 0; current_ < elements_.size(); ++current_) {
            const Element& element = elements_[current_];
            if (element.isUsed) {
                continue;
            }
            if (const std::string_view* text = element.text()) {
                if (const Tree* selected = node.child(*text)) {
                    if (capturesForPassthrough(*selected)) {
                        return;
                    }
                    if (defaultCaptures) {
                        continue;
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
        input_.markUsed(index);
        if (definition.takesValue()) {
            recordValues(definition, option, index);
            return;
        }
        if (option.value) {
            throw ParserError(UnexpectedValueForOption{option.name, std::string(*option.value)});
        }
        definition.input->record(definition, {input_.originalText(index), index.subIndex, &option.name});
    }

    void recordValues(const ArgumentDefinition& definition, const ParsedArgument& option, ArgumentIndex index) {
        const ParsingStrategy strategy = definition.parsingStrategy;
        if (strategy == ParsingStrategy::postTerminator || strategy == ParsingStrategy::allUnrecognized) {
            throw ParserError(InvalidState());
        }
        const auto update = [&](std::string_view value) {
            definition.input->record(definition, {input_.originalText(index), index.subIndex, &option.name, value});
        };
        std::optional<std::string_view> attached = option.value;
        if (!attached) {
            attached = joinedValue(definition, option.name, index);
            if (attached) {
                input_.markUsed({index.inputIndex});
            }
        }
        if (attached) {
            update(*attached);
            if (strategy != ParsingStrategy::allRemainingInput) {
                return;
            }
        }
        switch (strategy) {
        case ParsingStrategy::scanningForValue:
            takeValue(nextValue(index.inputIndex), index, option.name, update);
            break;
        case ParsingStrategy::upToNextOption:
            takeUpToNextOption(index, option.name, update);
            break;
        case ParsingStrategy::unconditional:
            if (const Element* next = nextElement(index.inputIndex)) {
                takePosition(*next, update);
            } else {
                throw missingValue(index, option.name);
            }
            break;
        case ParsingStrategy::allRemainingInput:
            while (const Element* next = nextElement(index.inputIndex)) {
                takePosition(*next, update);
            }
            break;
        default:
            takeValue(nextElement(index.inputIndex), index, option.name, update);
            break;
        }
    }

    /// The rest of a short group behind its first character, for a name that takes its value so.
    std::optional<std::string_view> joinedValue(const ArgumentDefinition& definition, const Name& name,
                                                ArgumentIndex index) const {
        const bool allowsJoined =
            std::any_of(definition.names.begin(), definition.names.end(),
                        [&](const Name& declared) { return declared == name && declared.allowingJoined; });
        if (!allowsJoined || index.subIndex != 0U) {
            return std::nullopt;
        }
        const std::string_view text = input_.originalText(index);
        return text.substr(platform::firstCharacters(text, 2).size());
    }

    const Element* elementAt(std::size_t offset) const {
        return offset < elements_.size() ? &elements_[offset] : nullptr;
    }

    /// The first unused element behind an input position.
    const Element* nextElement(std::size_t inputIndex) {
        front_ = std::max(front_, input_.offsetBehind(inputIndex));
        while (front_ < elements_.size() && elements_[front_].isUsed) {
            ++front_;
        }
        return elementAt(front_);
    }

    /// The first unused value behind an input position, but not behind the terminator.
    const Element* nextValue(std::size_t inputIndex) {
        scanned_ = std::max(scanned_, input_.offsetBehind(inputIndex));
        while (scanned_ < elements_.size() && (elements_[scanned_].isUsed || elements_[scanned_].option() != nullptr)) {
            ++scanned_;
        }
        return elementAt(scanned_);
    }

    template <class Update>
    void takeUpToNextOption(ArgumentIndex index, const Name& name, Update update) {
        for (std::size_t offset = current_ + 1; offset < input_.offsetBehind(index.inputIndex); ++offset) {
            if (!elements_[offset].isUsed) {
                throw missingValue(index, name); // The other characters of a short group are options.
            }
        }
        const Element* next = nextElement(index.inputIndex);
        do {
            takeValue(next, index, name, update);
            next = nextElement(index.inputIndex);
        } while (next != nullptr && next->text() != nullptr);
    }

    template <class Update>
    void takeValue(const Element* element, ArgumentIndex index, const Name& name, Update update) {
        if (element == nullptr || element->text() == nullptr) {
            throw missingValue(index, name);
        }
        input_.markUsed(element->index);
        update(*element->text());
    }

    template <class Update>
    void takePosition(const Element& element, Update update) {
        const ArgumentIndex position{element.index.inputIndex};
        input_.markUsed(position);
        update(input_.originalText(position));
    }

    ParserError missingValue(ArgumentIndex index, const Name& name) const {
        if (index.isComplete()) {
            return MissingValueForOption{name};
        }
        return MissingValueOrUnknownCompositeOption{name, input_.complete(index).option()->name,
                                                    std::string(input_.originalText(index))};
    }

    const ArgumentSet& arguments_;
    SplitArguments& input_;
    const std::vector<Element>& elements_;
    std::size_t current_ = 0;
    std::size_t front_ = 0;   ///< Behind the position last asked for, nothing is unused ahead of this one.
    std::size_t scanned_ = 0; ///< Likewise for values.
};

void recordPositional(const ArgumentDefinition& definition, const Element& element, SplitArguments& input) {
    const std::string_view text = input.originalText(element.index);
    input.markUsed(element.index);
    if (element.index.isComplete()) {
        definition.input->record(definition, {text, {}, nullptr, text});
    } else {
        const std::string option = element.option()->name.synopsis();
        definition.input->record(definition, {text, {}, nullptr, option});
    }
}

void parsePositionals(const ArgumentSet& arguments, SplitArguments& input) {
    const std::vector<Element>& elements = input.elements();
    const auto isAvailable = [](const Element& element) { return !element.isUsed && element.index.isComplete(); };
    auto end = elements.end();
    if (const auto* definition = arguments.findPositional(ParsingStrategy::postTerminator)) {
        end = std::find_if(elements.begin(), elements.end(),
                           [&](const Element& element) { return isAvailable(element) && element.isTerminator(); });
        for (auto element = end; element != elements.end(); ++element) {
            if (isAvailable(*element) && element->text() != nullptr) {
                recordPositional(*definition, *element, input);
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
            next = std::find_if(next, end, [&](const Element& element) {
                return isAvailable(element) &&
                       (element.text() != nullptr || (takesOptions && element.option() != nullptr));
            });
            if (next == end) {
                return;
            }
            recordPositional(definition, *next, input);
            ++next;
        } while (definition.isRepeatingPositional());
    }
}

} // namespace

void parseKnownArguments(const ArgumentSet& arguments, SplitArguments& input, const Tree& node) {
    if (arguments.content().empty()) {
        return;
    }
    NamedInputs(arguments, input).parse(node);
    parsePositionals(arguments, input);
}

void captureUnrecognized(const ArgumentDefinition& list, SplitArguments& input) {
    for (const Element& element : input.elements()) {
        if (!element.isUsed && !element.isTerminator()) {
            recordPositional(list, element, input);
        }
    }
}

} // namespace argumentparser
