#include "ArgumentParser/completions/GenerateCompletions.h"

#include <algorithm>

#include "ArgumentParser/Flag.h"
#include "ArgumentParser/Option.h"
#include "ArgumentParser/parsing/KnownArgumentsParser.h"

namespace argumentparser {

namespace {

constexpr std::string_view requestName = "generate-completion-script";

struct GenerateCompletions final : ParsableArguments {
    Option<std::optional<std::string>> generateCompletionScript{*this, requestName, std::optional<std::string>(), ""};
};

struct AutodetectedGenerateCompletions final : ParsableArguments {
    Flag<bool> generateCompletionScript{*this, requestName, ""};
};

/// Reads what `Request` declares and leaves everything else alone, whatever may be wrong with the command line.
template <class Request>
auto requested(SplitArguments split, const Tree& root) {
    Request request;
    try {
        parseKnownArguments(request.argumentSet(), split, root);
    } catch (const ParserError&) {
        return Request().generateCompletionScript.get();
    }
    return request.generateCompletionScript.get();
}

bool mayBeRequest(const SplitArguments& split) {
    return std::any_of(split.elements().begin(), split.elements().end(), [](const SplitArguments::Element& element) {
        const ParsedArgument* option = element.option();
        return option != nullptr && option->name.kind == Name::Kind::longName && option->name.text == requestName;
    });
}

} // namespace

std::optional<CompletionScriptRequested> completionScriptRequest(const SplitArguments& split, const Tree& root) {
    if (!mayBeRequest(split) || !root.configuration()._superCommandName.empty()) {
        return std::nullopt;
    }
    if (const auto shell = requested<GenerateCompletions>(split, root)) {
        return CompletionScriptRequested{*shell};
    }
    if (requested<AutodetectedGenerateCompletions>(split, root)) {
        return CompletionScriptRequested{};
    }
    return std::nullopt;
}

} // namespace argumentparser
