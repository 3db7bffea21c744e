#include "ArgumentParser/completions/CustomCompletion.h"

#include <algorithm>
#include <future>

#include "ArgumentParser/completions/CompletionShell.h"
#include "ArgumentParser/completions/CompletionText.h"
#include "ArgumentParser/declaration/ParserError.h"
#include "ArgumentParser/parsing/SplitArguments.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

constexpr std::string_view positionalMark = "positional@";

using Candidates = std::vector<std::string>;

/// What is left of a request, read from its front.
class Request {
public:
    explicit Request(std::span<const std::string_view> texts) : texts_(texts) {}

    std::string_view next() {
        if (texts_.empty()) {
            throw ParserError(InvalidState());
        }
        const std::string_view text = texts_.front();
        texts_ = texts_.subspan(1);
        return text;
    }

    /// The index at the front; nothing when there is something else.
    std::optional<std::size_t> nextIndex() {
        const auto index = texts_.empty() ? std::nullopt : platform::parseNumber<std::size_t>(texts_.front());
        texts_ = texts_.subspan(index ? 1 : 0);
        return index;
    }

    Candidates rest() const { return {texts_.begin(), texts_.end()}; }

private:
    std::span<const std::string_view> texts_;
};

const Tree& selectedCommand(const Tree& root, Request& request) {
    const Tree* node = &root;
    for (std::string_view word = request.next(); word != "--"; word = request.next()) {
        node = node->child(word);
        if (node == nullptr) {
            throw ParserError(InvalidState());
        }
    }
    return *node;
}

const ArgumentDefinition* findPositional(const ArgumentSet& arguments, std::size_t position) {
    for (const ArgumentDefinition& definition : arguments.content()) {
        if (definition.isPositional() && position-- == 0) {
            return &definition;
        }
    }
    return nullptr;
}

const ArgumentDefinition* findNamed(const ArgumentSet& arguments, std::string_view identifier) {
    const SplitArguments split(std::span(&identifier, 1));
    const SplitArguments::Element* element = split.firstUnused();
    const ParsedArgument* option = element == nullptr ? nullptr : element->option();
    return option == nullptr ? nullptr : arguments.find(option->name);
}

const ArgumentDefinition& identifiedDefinition(const ArgumentSet& arguments, std::string_view identifier) {
    const ArgumentDefinition* definition = nullptr;
    if (identifier.starts_with(positionalMark)) {
        const auto position = platform::parseNumber<std::size_t>(identifier.substr(positionalMark.size()));
        definition = position ? findPositional(arguments, *position) : nullptr;
    } else {
        definition = findNamed(arguments, identifier);
    }
    if (definition == nullptr) {
        throw ParserError(InvalidState());
    }
    return *definition;
}

/// What of the cursor's word stands ahead of the cursor, without the name of an option that the value is attached to.
std::string typedPrefix(const Candidates& words, std::size_t wordIndex, std::size_t cursorIndex,
                        const ArgumentDefinition& definition) {
    if (wordIndex >= words.size()) {
        return {};
    }
    std::string prefix(platform::firstCharacters(words[wordIndex], cursorIndex));
    for (const Name& name : definition.names) {
        if (const std::string start = name.synopsis() + "="; prefix.starts_with(start)) {
            return prefix.substr(start.size());
        }
    }
    return prefix;
}

/// One candidate to a line, as the helper function of each script reads them. A line feed can't be part of one.
std::string worded(const Candidates& candidates, std::optional<CompletionShell> shell) {
    Candidates lines;
    for (const std::string& candidate : candidates) {
        if (shell == CompletionShell::zsh) {
            lines.push_back(backslashed(onOneLine(candidate), R"(\:)"));
        } else {
            lines.push_back(shell ? onOneLine(candidate) : candidate);
        }
    }
    return platform::joined(lines, "\n");
}

} // namespace

std::string customCompletion(const Tree& root, std::span<const std::string_view> texts) {
    Request request(texts);
    const std::unique_ptr<ParsableCommand> command = selectedCommand(root, request).element().construct();
    const ArgumentSet arguments = command->argumentSet();
    const ArgumentDefinition& definition = identifiedDefinition(arguments, request.next());
    const CompletionKind completion = definition.completion();
    const std::optional<std::size_t> givenWordIndex = request.nextIndex();
    const std::size_t cursorIndex = request.nextIndex().value_or(std::string::npos);
    const Candidates words = request.rest();
    const std::size_t wordIndex = givenWordIndex.value_or(words.empty() ? 0 : words.size() - 1);
    const std::string prefix = typedPrefix(words, wordIndex, cursorIndex, definition);
    Candidates candidates;
    if (const auto* custom = std::get_if<CompletionKind::Custom>(&completion.value)) {
        candidates = custom->candidates(words, wordIndex, prefix);
    } else if (const auto* async = std::get_if<CompletionKind::CustomAsync>(&completion.value)) {
        candidates = std::async(std::launch::async, [&] { return async->candidates(words, wordIndex, prefix); }).get();
    } else if (const auto* deprecated = std::get_if<CompletionKind::CustomDeprecated>(&completion.value)) {
        candidates = deprecated->candidates(words);
    } else {
        throw ParserError(InvalidState());
    }
    return worded(candidates, requestingCompletionShell());
}

} // namespace argumentparser
