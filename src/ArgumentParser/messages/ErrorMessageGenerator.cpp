#include "ArgumentParser/messages/ErrorMessageGenerator.h"

#include <algorithm>

#include "ArgumentParser/CommandExit.h"
#include "ArgumentParser/completions/CompletionShell.h"
#include "ArgumentParser/declaration/BuiltInFlags.h"
#include "ArgumentParser/declaration/Tree.h"
#include "ArgumentParser/messages/EditDistance.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

std::string quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

std::string quotedList(const std::vector<std::string>& texts) {
    return quoted(platform::joined(texts, "', '"));
}

/// The path and the name joined with ".".
std::string keyText(const InputKey& key) {
    std::string text;
    for (const std::string_view group : key.path) {
        text.append(group).append(".");
    }
    return text.append(key.name);
}

bool isVisible(const ArgumentDefinition& definition, const InputKey& key) {
    return definition.isVisible() && definition.key == key;
}

const ArgumentDefinition* visibleDefinition(const ArgumentSet& arguments, const InputKey& key) {
    const auto& content = arguments.content();
    const auto found = std::find_if(content.begin(), content.end(),
                                    [&](const ArgumentDefinition& definition) { return isVisible(definition, key); });
    return found == content.end() ? nullptr : &*found;
}

const ArgumentDefinition* visibleDefinition(const ArgumentSet& arguments, const Name& name) {
    const ArgumentDefinition* definition = arguments.find(name);
    return definition != nullptr && definition->isVisible() ? definition : nullptr;
}

/// Words a message for each kind of error.
class Wording {
public:
    Wording(const Tree& node, const ArgumentSet& arguments) : node_(node), arguments_(arguments) {}

    std::string operator()(const HelpRequested&) const { return {}; }
    std::string operator()(const VersionRequested&) const { return {}; }
    std::string operator()(const DumpHelpRequested&) const { return {}; }
    std::string operator()(const CompletionScriptRequested&) const { return {}; }
    std::string operator()(const CompletionScriptCustomResponse&) const { return {}; }

    std::string operator()(const UnsupportedShell& error) const {
        std::string message = error.shell ? "Can't generate completion scripts for " + quoted(*error.shell) + "."
                                          : "Can't autodetect a supported shell.";
        message += "\nPlease use --generate-completion-script=<shell> with one of:\n   ";
        for (const std::string_view name : completionShellNames) {
            message.append(" ").append(name);
        }
        return message;
    }

    std::string operator()(const UnknownOption& error) const { return unknownOption(error.name); }

    std::string operator()(const InvalidOption& error) const { return "Invalid option: " + error.text; }

    std::string operator()(const NonAlphanumericShortOption& error) const {
        return "Invalid option: -" + error.character;
    }

    std::string operator()(const MissingValueForOption& error) const { return missingValue(error.name); }

    std::string operator()(const MissingValueOrUnknownCompositeOption& error) const {
        return unknownOption(error.compositeName) + "\n   or: " + missingValue(error.shortName) + " in " +
               quoted(error.group);
    }

    std::string operator()(const UnexpectedValueForOption& error) const {
        return "The option " + quoted(error.name.synopsis()) + " does not take any value, but " + quoted(error.value) +
               " was specified.";
    }

    std::string operator()(const UnexpectedExtraValues& error) const {
        if (error.values.size() == 1) {
            return "Unexpected argument " + quoted(error.values.front());
        }
        return std::to_string(error.values.size()) + " unexpected arguments: " + quotedList(error.values);
    }

    std::string operator()(const DuplicateExclusiveValues& error) const {
        return "Value to be set with " + location(error.duplicate) + " had already been set with " +
               location(error.previous);
    }

    std::string operator()(const NoValue& error) const {
        std::vector<std::string> synopses;
        for (const ArgumentDefinition& definition : arguments_.content()) {
            std::string synopsis = definition.synopsisWithoutBrackets();
            if (isVisible(definition, error.key) && !synopsis.empty()) {
                synopses.push_back(std::move(synopsis));
            }
        }
        if (synopses.empty()) {
            return "No value set for non-argument var " + keyText(error.key) +
                   ". Replace with a static variable, or let constant.";
        }
        return (synopses.size() == 1 ? "Missing expected argument " : "Missing one of: ") + quotedList(synopses);
    }

    std::string operator()(const UnableToParseValue& error) const {
        const ArgumentDefinition* definition = visibleDefinition(arguments_, error.key);
        const std::string valueName = definition == nullptr ? "" : "<" + definition->valueName() + ">";
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
        }
    }

    std::string operator()(const NotParentCommand& error) const {
        return "Command " + quoted(error.commandName) + " is not a parent of the current command.";
    }

    std::string operator()(const InvalidState&) const {
        return "Internal error. Invalid state while parsing command-line arguments.";
    }

private:
    std::string unknownOption(const Name& name) const {
        std::string message = "Unknown option " + quoted(name.synopsis());
        if (name.kind == Name::Kind::shortName) {
            return message;
        }
        const std::string nearest = nearestName(name.synopsis());
        return nearest.empty() ? message : message + ". Did you mean " + quoted(nearest) + "?";
    }

    /// The visible name that a misspelt one may stand for; empty for none.
    std::string nearestName(std::string_view synopsis) const {
        std::size_t minimumDistance = 4;
        std::string nearest;
        const auto consider = [&](const ArgumentDefinition& definition) {
            if (!definition.isVisible()) {
                return;
            }
            for (const Name& name : definition.names) {
                const std::size_t distance = editDistance(synopsis, name.synopsis());
                if (distance < minimumDistance) {
                    minimumDistance = distance;
                    nearest = name.synopsis();
                }
            }
        };
        std::for_each(arguments_.content().begin(), arguments_.content().end(), consider);
        const auto builtIns = builtInDefinitions(node_);
        std::for_each(builtIns.begin(), builtIns.end(), consider);
        return nearest;
    }

    std::string missingValue(const Name& name) const {
        const ArgumentDefinition* definition = visibleDefinition(arguments_, name);
        const std::string value = definition == nullptr ? "" : " <" + definition->valueName() + ">";
        return "Missing value for " + quoted(name.synopsis() + value);
    }

    static std::string location(const FlagLocation& flag) {
        if (!flag.subIndex) {
            return "flag " + quoted(flag.text);
        }
        const auto characters = platform::splitCharacters(flag.text);
        return "flag " + quoted(characters.at(*flag.subIndex + 1)) + " in " + quoted(flag.text);
    }

    static std::string invalidValueReason(const UnableToParseValue& error, const ArgumentDefinition* definition) {
        if (error.originalError) {
            if (const std::string description = errorDescription(error.originalError); !description.empty()) {
                return ": " + description;
            }
        }
        std::vector<std::string> values;
        if (definition != nullptr) {
            for (const std::string_view value : definition->allValueStrings()) {
                values.push_back(quoted(value));
            }
        }
        if (values.empty()) {
            return {};
        }
        constexpr std::size_t maximumInLine = 5;
        if (values.size() > maximumInLine) {
            return ". Please provide one of the following:\n  - " + platform::joined(values, "\n  - ");
        }
        const std::string last = values.back();
        values.pop_back();
        return ". Please provide one of " + (values.empty() ? "" : platform::joined(values, ", ") + " or ") + last +
               ".";
    }

    const Tree& node_;
    const ArgumentSet& arguments_;
};

const ArgumentDefinition* failingDefinition(const ParserError& parserError, const ArgumentSet& arguments) {
    if (const auto* error = std::get_if<NoValue>(&parserError)) {
        return visibleDefinition(arguments, error->key);
    }
    if (const auto* error = std::get_if<MissingValueForOption>(&parserError)) {
        return visibleDefinition(arguments, error->name);
    }
    if (const auto* error = std::get_if<UnableToParseValue>(&parserError)) {
        return visibleDefinition(arguments, error->key);
    }
    return nullptr;
}

} // namespace

std::string ErrorMessageGenerator::message() const {
    return std::visit(Wording(*error_.node, arguments_), error_.parserError);
}

std::string ErrorMessageGenerator::helpLine() const {
    const ArgumentDefinition* definition = failingDefinition(error_.parserError, arguments_);
    if (definition == nullptr || definition->help.abstract.empty()) {
        return {};
    }
    const std::string form = definition->isPositional() ? "" : definition->preferredName()->synopsis() + " ";
    return form + "<" + definition->valueName() + ">  " + std::string(definition->help.abstract);
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
