#include "ArgumentParser/ErrorMessageGenerator.h"

#include <algorithm>

#include "ArgumentParser/CommandExit.h"
#include "ArgumentParser/EditDistance.h"
#include "ArgumentParser/HelpGenerator.h"
#include "platform/Text.h"

namespace argumentparser {

namespace {

std::string quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

std::string quotedList(const std::vector<std::string>& texts) {
    return quoted(platform::joined(texts, "', '"));
}

/// Words the messages of one failed command.
class ErrorMessageGenerator {
public:
    explicit ErrorMessageGenerator(const CommandError& error)
        : error_(error), command_(error.commandStack.back().construct()) {
        const ArgumentSet all = command_->argumentSet();
        for (const ArgumentDefinition& definition : all.content()) {
            if (definition.isVisible()) {
                arguments_.append(definition);
            }
        }
    }

    std::string message() const { return std::visit(*this, error_.parserError); }

    std::string helpLine() const {
        const ArgumentDefinition* definition = failingDefinition();
        if (definition == nullptr || definition->help.abstract.empty()) {
            return {};
        }
        std::string form = definition->isPositional() ? "" : definition->preferredName()->synopsis() + " ";
        return form + "<" + definition->valueName() + ">  " + std::string(definition->help.abstract);
    }

    std::string operator()(const HelpRequested&) const { return {}; }
    std::string operator()(const VersionRequested&) const { return {}; }

    std::string operator()(const UnknownOption& error) const { return unknownOption(error.name); }

    std::string operator()(const InvalidOption& error) const { return "Invalid option: " + error.text; }

    std::string operator()(const NonAlphanumericShortOption& error) const {
        return "Invalid option: -" + error.character;
    }

    std::string operator()(const MissingValueForOption& error) const { return missingValue(error.name); }

    std::string operator()(const MissingValueOrUnknownCompositeOption& error) const {
        return unknownOption(error.compositeName) + "\n   or: " + missingValue(error.shortName) + " in " +
               quoted(rawText(error.origin));
    }

    std::string operator()(const UnexpectedValueForOption& error) const {
        return "The option " + quoted(error.name.synopsis()) + " does not take any value, but " + quoted(error.value) +
               " was specified.";
    }

    std::string operator()(const UnexpectedExtraValues& error) const {
        if (error.values.size() == 1) {
            return "Unexpected argument " + quoted(error.values.front().second);
        }
        std::vector<std::string> texts;
        for (const auto& [origin, text] : error.values) {
            texts.push_back(text);
        }
        return std::to_string(texts.size()) + " unexpected arguments: " + quotedList(texts);
    }

    std::string operator()(const DuplicateExclusiveValues& error) const {
        return "Value to be set with " + place(error.duplicate) + " had already been set with " + place(error.previous);
    }

    std::string operator()(const NoValue& error) const {
        std::vector<std::string> synopses;
        for (const ArgumentDefinition& definition : arguments_.content()) {
            std::string synopsis = definition.synopsisWithoutBrackets();
            if (bears(definition, error.key) && !synopsis.empty()) {
                synopses.push_back(std::move(synopsis));
            }
        }
        if (synopses.empty()) {
            return "No value set for non-argument var " + error.key.text() +
                   ". Replace with a static variable, or let constant.";
        }
        return (synopses.size() == 1 ? "Missing expected argument " : "Missing one of: ") + quotedList(synopses);
    }

    std::string operator()(const UnableToParseValue& error) const {
        const ArgumentDefinition* definition = definitionOf(error.key);
        std::string valueName = definition == nullptr ? "" : "<" + definition->valueName() + ">";
        std::string target = error.name ? error.name->synopsis() : "";
        if (!target.empty() && !valueName.empty()) {
            target += ' ';
        }
        target += valueName;
        const std::string start = "The value " + quoted(error.value) + " is invalid";
        const std::string reason = invalidValueReason(error, definition);
        return target.empty() ? start + "." + reason : start + " for " + quoted(target) + reason;
    }

    std::string operator()(const UserValidationError& error) const { return errorDescription(error.error); }

    std::string operator()(const NoArguments& error) const {
        try {
            std::rethrow_exception(error.error);
        } catch (const ParserError& wrapped) {
            return std::visit(*this, wrapped);
        } catch (...) {
            return errorDescription(error.error);
        }
    }

    std::string operator()(const NotParentCommand& error) const {
        return "Command " + quoted(error.commandName) + " is not a parent of the current command.";
    }

    std::string operator()(const NotImplemented&) const {
        return "Internal error. Parsing command-line arguments hit unimplemented code path.";
    }

    std::string operator()(const InvalidState&) const {
        return "Internal error. Invalid state while parsing command-line arguments.";
    }

    std::string operator()(const MissingSubcommand&) const { return "Missing required subcommand."; }

private:
    static bool bears(const ArgumentDefinition& definition, const InputKey& key) {
        const auto& keys = definition.help.keys;
        return std::find(keys.begin(), keys.end(), key) != keys.end();
    }

    const ArgumentDefinition* definitionOf(const InputKey& key) const {
        const auto& content = arguments_.content();
        const auto found = std::find_if(content.begin(), content.end(),
                                        [&](const ArgumentDefinition& definition) { return bears(definition, key); });
        return found == content.end() ? nullptr : &*found;
    }

    const ArgumentDefinition* failingDefinition() const {
        if (const auto* error = std::get_if<NoValue>(&error_.parserError)) {
            return definitionOf(error->key);
        }
        if (const auto* error = std::get_if<MissingValueForOption>(&error_.parserError)) {
            return arguments_.find(error->name);
        }
        if (const auto* error = std::get_if<UnableToParseValue>(&error_.parserError)) {
            return definitionOf(error->key);
        }
        return nullptr;
    }

    std::string unknownOption(const Name& name) const {
        const std::string message = "Unknown option " + quoted(name.synopsis());
        if (name.kind == Name::Kind::shortName) {
            return message;
        }
        const std::string nearest = nearestName(name.synopsis());
        return nearest.empty() ? message : message + ". Did you mean " + quoted(nearest) + "?";
    }

    /// The visible name that a misspelt one may stand for; empty for none.
    std::string nearestName(std::string_view synopsis) const {
        std::size_t leastDistance = 4;
        std::string nearest;
        const auto consider = [&](const ArgumentDefinition& definition) {
            for (const Name& name : definition.names()) {
                const std::size_t distance = editDistance(synopsis, name.synopsis());
                if (distance < leastDistance) {
                    leastDistance = distance;
                    nearest = name.synopsis();
                }
            }
        };
        std::for_each(arguments_.content().begin(), arguments_.content().end(), consider);
        const auto builtIns = builtInDefinitions(error_.commandStack);
        std::for_each(builtIns.begin(), builtIns.end(), consider);
        return nearest;
    }

    std::string missingValue(const Name& name) const {
        const ArgumentDefinition* definition = arguments_.find(name);
        const std::string value = definition == nullptr ? "" : " <" + definition->valueName() + ">";
        return "Missing value for " + quoted(name.synopsis() + value);
    }

    std::string rawText(const InputOrigin& origin) const {
        const std::size_t position = origin.indices().front().inputIndex;
        return position < error_.originalInput.size() ? error_.originalInput[position] : "";
    }

    std::string place(const InputOrigin& origin) const {
        if (origin.isDefaultValue()) {
            return "position default";
        }
        const ArgumentIndex index = origin.indices().front();
        const std::string text = rawText(origin);
        if (index.isComplete()) {
            return "flag " + quoted(text);
        }
        const auto characters = platform::splitCharacters(text);
        return "flag " + quoted(characters.at(*index.subIndex + 1)) + " in " + quoted(text);
    }

    static std::string invalidValueReason(const UnableToParseValue& error, const ArgumentDefinition* definition) {
        if (error.originalError) {
            if (const std::string description = errorDescription(error.originalError); !description.empty()) {
                return ": " + description;
            }
        }
        std::vector<std::string> values;
        if (definition != nullptr) {
            for (const std::string_view value : definition->help.allValueStrings) {
                values.push_back(quoted(value));
            }
        }
        if (values.empty()) {
            return {};
        }
        constexpr std::size_t longestLine = 5;
        if (values.size() > longestLine) {
            return ". Please provide one of the following:\n  - " + platform::joined(values, "\n  - ");
        }
        std::string last = values.back();
        values.pop_back();
        return ". Please provide one of " + (values.empty() ? "" : platform::joined(values, ", ") + " or ") + last +
               ".";
    }

    const CommandError& error_;
    std::unique_ptr<ParsableCommand> command_;
    ArgumentSet arguments_; ///< The visible ones.
};

} // namespace

std::string errorMessage(const CommandError& error) {
    return ErrorMessageGenerator(error).message();
}

std::string errorHelpLine(const CommandError& error) {
    return ErrorMessageGenerator(error).helpLine();
}

std::string errorDescription(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const ValidationError& validation) {
        return validation.message;
    } catch (const CommandFailure& failure) {
        return failure.message;
    } catch (const std::exception& exception) {
        return exception.what();
    } catch (...) {
        return {};
    }
}

} // namespace argumentparser
