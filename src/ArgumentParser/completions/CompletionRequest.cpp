#include "ArgumentParser/completions/CompletionRequest.h"

#include <algorithm>

#include "ArgumentParser/Flag.h"
#include "ArgumentParser/Option.h"
#include "ArgumentParser/completions/CustomCompletion.h"
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

/// Whether it is worth a look at the command line as a whole, which is seldom.
bool mayBeScriptRequest(std::span<const std::string_view> arguments) {
    return std::any_of(arguments.begin(), arguments.end(), [](std::string_view argument) {
        return argument.starts_with("--") && argument.substr(2).starts_with(requestName);
    });
}

/// Nothing for a tool that is a plug-in of another.
std::optional<CompletionScriptRequested> scriptRequest(const Tree& root, std::span<const std::string_view> arguments) {
    if (!mayBeScriptRequest(arguments) || !root.configuration()._superCommandName.empty()) {
        return std::nullopt;
    }
    const SplitArguments split(arguments);
    if (const auto shell = requested<GenerateCompletions>(split, root)) {
        return CompletionScriptRequested{shell};
    }
    if (requested<AutodetectedGenerateCompletions>(split, root)) {
        return CompletionScriptRequested{};
    }
    return std::nullopt;
}

} // namespace

std::optional<CommandError> completionRequest(const Tree& root, std::span<const std::string_view> arguments) {
    try {
        if (!arguments.empty() && arguments.front() == customCompletionWord) {
            return CommandError{&root, CompletionScriptCustomResponse{customCompletion(root, arguments.subspan(1))}};
        }
        if (auto request = scriptRequest(root, arguments)) {
            return CommandError{&root, *std::move(request)};
        }
        return std::nullopt;
    } catch (const ParserError& error) {
        return CommandError{&root, error};
    }
}

} // namespace argumentparser
