#include <algorithm>

#include "ArgumentParser/completions/CompletionTemplates.h"
#include "ArgumentParser/completions/CompletionText.h"
#include "ArgumentParser/completions/CompletionsGenerator.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

/// In brackets, as a part of a spec of `_arguments`.
std::string bracketed(std::string_view description) {
    return description.empty() ? "" : "[" + backslashed(description, R"(\:[])") + "]";
}

/// An entry of an array that `_describe` reads.
std::string described(std::string_view value, std::string_view description) {
    const std::string entry = backslashed(value, R"(\:)");
    return singleQuoted(description.empty() ? entry : entry + ":" + backslashed(description, R"(\)"));
}

/// The variable that holds the closed set of values of `input`.
std::string valuesVariable(const CompletionInput& input) {
    std::string name = "values_of_";
    for (const char character : input.identifier.substr(input.identifier.find_first_not_of('-'))) {
        const bool isPlain = (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
                             (character >= '0' && character <= '9');
        name += isPlain ? character : '_';
    }
    return name;
}

/// Writes the functions of the commands into one text.
class ZshScript {
public:
    explicit ZshScript(const CompletionCommand& root)
        : root_(root), toolIdentifier_(functionName({root.name()}).substr(1)),
          text_("#compdef " + root.name() + "\n" + filledIn(zshHelpers, {{"id", toolIdentifier_}})) {
        visitCommands(root, [&](const CompletionCommand& command) { addFunction(command); });
        // An autoloaded function bears the name of its file.
        const std::string function = functionName(root.path);
        text_ += "\nif [[ \"${funcstack[1]}\" = " + function + " ]]; then\n    " + function +
                 " \"${@}\"\nelse\n    compdef " + function + " " + root.name() + "\nfi\n";
    }

    const std::string& text() const { return text_; }

private:
    std::string helper(std::string_view suffix) const { return "__" + toolIdentifier_ + std::string(suffix); }

    void addFunction(const CompletionCommand& command) {
        text_ += "\n" + functionName(command.path) + "() {\n";
        if (&command == &root_) {
            text_ += zshRootStart;
        }
        text_ += "    local -i ret=1\n";
        if (command.isHelp) {
            addHelp();
        } else {
            addDefaultStart(command);
            addValues(command);
            addSpecs(command);
            addSubcommands(command);
            addDefaultEnd(command);
        }
        text_ += "    return \"${ret}\"\n}\n";
    }

    void addValues(const CompletionCommand& command) {
        for (const auto* inputs : {&command.options, &command.positionals}) {
            for (const CompletionInput& input : *inputs) {
                const auto* list = std::get_if<CompletionKind::List>(&input.completion.value);
                if (list == nullptr || !input.isOffered) {
                    continue;
                }
                text_ += "    local -ar " + valuesVariable(input) + "=(";
                const char* separator = "";
                for (const std::string_view value : list->values) {
                    text_ += separator + described(value, "");
                    separator = " ";
                }
                text_ += ")\n";
            }
        }
    }

    void addSpecs(const CompletionCommand& command) {
        text_ += "    local -ar arg_specs=(\n";
        for (const CompletionInput& option : command.options) {
            text_ += "        " + optionSpec(option, command) + "\n";
        }
        for (const CompletionInput& positional : command.positionals) {
            text_ += "        " + positionalSpec(positional, command) + "\n";
        }
        if (!command.children.empty()) {
            text_ += "        '(-): :->command'\n        '(-)*:: :->arg'\n";
        }
        text_ += "    )\n    _arguments -w -s -S : \"${arg_specs[@]}\" && ret=0\n";
    }

    std::string optionSpec(const CompletionInput& option, const CompletionCommand& command) const {
        const std::string repetition =
            option.isRepeating ? "*" : "(" + platform::joined(option.alternatives, " ") + ")";
        std::string spec = bracketed(option.description);
        if (option.takesValue) {
            spec += value(option, command);
        }
        const std::string equals = option.takesValue ? "=" : "";
        if (option.names.size() == 1) {
            return singleQuoted(repetition + option.names.front().synopsis() + equals + spec);
        }
        return singleQuoted(repetition) + "{" + platform::joined(option.synopses(), equals + ",") + equals + "}" +
               singleQuoted(spec);
    }

    std::string positionalSpec(const CompletionInput& positional, const CompletionCommand& command) const {
        if (!positional.isOffered) {
            return positional.isRepeating ? "'*: : '" : "': : '";
        }
        return singleQuoted((positional.isRepeating ? "*" : "") + value(positional, command));
    }

    /// ":name:action"
    std::string value(const CompletionInput& input, const CompletionCommand& command) const {
        struct Actions {
            const ZshScript& script;
            const CompletionInput& input;
            const CompletionCommand& command;

            std::string operator()(const CompletionKind::Default&) const { return "_files"; }
            std::string operator()(const CompletionKind::List&) const {
                return "{_describe -V \"\" " + valuesVariable(input) + "}";
            }
            std::string operator()(const CompletionKind::File& file) const {
                std::string patterns;
                for (const std::string_view extension : file.extensions) {
                    patterns.append(patterns.empty() ? "" : "|").append("*.").append(extension);
                }
                if (file.extensions.size() > 1) {
                    patterns = "(" + patterns + ")";
                }
                return patterns.empty() ? "_files" : "_files -g " + singleQuoted(patterns);
            }
            std::string operator()(const CompletionKind::Directory&) const { return "_files -/"; }
            std::string operator()(const CompletionKind::ShellCommand& shell) const {
                return "{" + script.helper("_complete") + " \"${(@f)$(" + std::string(shell.command) + ")}\"}";
            }
            std::string operator()(const CompletionKind::Custom&) const { return custom(); }
            std::string operator()(const CompletionKind::CustomAsync&) const { return custom(); }
            std::string operator()(const CompletionKind::CustomDeprecated&) const { return custom(); }

            std::string custom() const {
                return "{" + script.helper("_custom_complete") + " " +
                       candidateRequest(command.path, input.identifier) + " \"${current_word_index}\"}";
            }
        };
        return ":" + backslashed(input.valueName, R"(\:)") + ":" +
               backslashed(std::visit(Actions{*this, input, command}, input.completion.value), ":");
    }

    void addSubcommands(const CompletionCommand& command) {
        if (command.children.empty()) {
            return;
        }
        text_ += "    case \"${state}\" in\n    command)\n" + subcommandArray(command, "        ") +
                 "        ((${words[(ie)--]} < CURRENT)) || _describe -V subcommand subcommands && ret=0\n        ;;\n"
                 "    arg)\n        case \"${words[1]}\" in\n";
        for (const CompletionCommand& child : command.children) {
            text_ += "        " + pattern(child.words) + ") " + functionName(child.path) + " && ret=0 ;;\n";
        }
        text_ += "        esac\n        ;;\n    esac\n";
    }

    static std::string pattern(const std::vector<std::string>& words) {
        std::string text;
        for (const std::string& word : words) {
            text += (text.empty() ? "" : "|") + singleQuoted(word);
        }
        return text;
    }

    static std::string subcommandArray(const CompletionCommand& command, const std::string& indent) {
        std::string array = indent + "local -ar subcommands=(\n";
        for (const CompletionCommand* child : command.displayedChildren()) {
            array += indent + "    " + described(child->name(), child->description) + "\n";
        }
        return array + indent + ")\n";
    }

    void addDefaultStart(const CompletionCommand& command) {
        if (!command.children.empty()) {
            text_ += "    local context state state_descr line\n    local -A opt_args\n";
        }
        if (const CompletionCommand* child = command.defaultCommand()) {
            std::vector<std::string> own = command.childWords();
            for (const CompletionInput& option : command.options) {
                const std::vector<std::string> synopses = option.synopses();
                own.insert(own.end(), synopses.begin(), synopses.end());
            }
            text_ += "    # Without the word of a subcommand, the words are those of " + child->name() +
                     ".\n    if ((CURRENT > 2)) && [[ \"${words[2]%%=*}\" != (" + pattern(own) +
                     ") ]]; then\n        " + functionName(child->path) +
                     "\n        return\n    fi\n"
                     "    local -ir is_first=\"$((CURRENT == 2))\"\n    local -r first_word=\"${words[2]}\"\n";
        }
    }

    void addDefaultEnd(const CompletionCommand& command) {
        if (const CompletionCommand* child = command.defaultCommand()) {
            // Where any word may stand, the names of the subcommands say more than those of all files.
            const bool hasValues = std::any_of(
                child->positionals.begin(), child->positionals.end(), [](const CompletionInput& positional) {
                    return !std::holds_alternative<CompletionKind::Default>(positional.completion.value);
                });
            text_ += std::string("    ((is_first)) && ") + (hasValues ? "" : "[[ \"${first_word}\" = -* ]] && ") +
                     functionName(child->path) + " && ret=0\n";
        }
    }

    /// The words of any command that has subcommands lead to their names.
    void addHelp() {
        text_ += "    case \"${(j: :)words[2,CURRENT - 1]}\" in\n";
        visitCommands(root_, [&](const CompletionCommand& command) {
            if (command.isDisplayed && !command.children.empty()) {
                const std::string words = platform::joined({command.path.begin() + 1, command.path.end()}, " ");
                text_ += "    " + singleQuoted(words) + ")\n" + subcommandArray(command, "        ") +
                         "        _describe -V subcommand subcommands && ret=0\n        ;;\n";
            }
        });
        text_ += "    esac\n";
    }

    const CompletionCommand& root_;
    std::string toolIdentifier_;
    std::string text_;
};

} // namespace

std::string zshCompletionScript(const CompletionCommand& root) {
    return ZshScript(root).text();
}

} // namespace argumentparser
