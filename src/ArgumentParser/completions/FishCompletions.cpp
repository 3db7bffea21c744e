#include <algorithm>

#include "ArgumentParser/completions/CompletionTemplates.h"
#include "ArgumentParser/completions/CompletionText.h"
#include "ArgumentParser/completions/CompletionsGenerator.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

/// A name as `argparse` has it in the variable that tells of its use.
std::string variableName(const std::string& synopsis) {
    std::string name = synopsis.substr(synopsis.find_first_not_of('-'));
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

/// Words for `complete --arguments`, which expands them as a command line does.
std::string argumentList(const std::vector<std::string_view>& words) {
    std::string list;
    for (const std::string_view word : words) {
        list.append(list.empty() ? "" : " ").append(fishQuoted(word));
    }
    return fishQuoted(list);
}

/// Writes the functions and completions of the commands into one text.
class FishScript {
public:
    explicit FishScript(const CompletionCommand& root)
        : root_(root), toolIdentifier_(functionName({root.name()}).substr(1)),
          text_(filledIn(fishHelpers, {{"id", toolIdentifier_}, {"tool", root.name()}})) {
        visitCommands(root, [&](const CompletionCommand& command) { addFunction(command); });
        text_ += "\n" + completeTool() + " -f\n";
        visitCommands(root, [&](const CompletionCommand& command) { addCompletions(command); });
    }

    const std::string& text() const { return text_; }

private:
    std::string helper(std::string_view suffix) const { return "__" + toolIdentifier_ + std::string(suffix); }
    std::string completeTool() const { return "complete -c " + fishQuoted(root_.name()); }

    void addFunction(const CompletionCommand& command) {
        text_ += "\nfunction " + functionName(command.path) + " --no-scope-shadowing\n";
        if (command.isHelp) {
            text_ += "    set -a places (string join ' ' " + words(command.path) + " $unparsed_tokens 1)\n";
        } else {
            const auto& positionals = command.positionals;
            const bool isEndless = !positionals.empty() && positionals.back().isRepeating;
            text_ += "    " + helper("_parse_subcommand") + " " + fishQuoted(words(command.path)) + " " +
                     std::to_string(positionals.size()) + " " + fishQuoted(isEndless ? "..." : command.defaultChild) +
                     " " + fishQuoted(childWords(command)) + optionSpecs(command) + "\n";
        }
        text_ += "end\n";
    }

    static std::string words(const std::vector<std::string>& path) { return platform::joined(path, " "); }

    static std::string childWords(const CompletionCommand& command) {
        std::vector<std::string> all;
        for (const CompletionCommand& child : command.children) {
            for (const std::string& word : child.words) {
                all.push_back(word == child.name() ? word : word + "/" + child.name());
            }
        }
        return platform::joined(all, " ");
    }

    /// For `argparse`, which takes a name once, and knows no long ones with a single dash.
    static std::string optionSpecs(const CompletionCommand& command) {
        std::string specs;
        for (const CompletionInput& option : command.options) {
            for (const Name& name : option.names) {
                if (name.kind != Name::Kind::longWithSingleDash) {
                    specs += " " + fishQuoted(name.text + (option.takesValue ? "=+" : ""));
                }
            }
        }
        return specs;
    }

    void addCompletions(const CompletionCommand& command) {
        if (command.isHelp) {
            visitCommands(root_, [&](const CompletionCommand& other) {
                std::vector<std::string> path = other.path;
                path.insert(path.begin() + 1, command.name());
                addSubcommands(other, path, {root_.name(), command.name()}, 1);
            });
            return;
        }
        addSubcommands(command, command.path, firstWords(command), command.positionals.size() + 1);
        for (std::size_t i = 0; i < command.positionals.size(); ++i) {
            const CompletionInput& positional = command.positionals[i];
            const std::string values = positional.isOffered ? valueCompletions(positional, command) : "";
            if (!values.empty()) {
                text_ += completeTool() + positionalCondition(command.path, firstWords(command), i + 1) + " -" +
                         values + "\n";
            }
        }
        for (const CompletionInput& option : command.options) {
            addOption(option, command);
        }
    }

    /// The words of the command's path, as far as nothing can be typed between them or in their place.
    std::vector<std::string> firstWords(const CompletionCommand& command) const {
        std::vector<std::string> certain = {root_.name()};
        const CompletionCommand* parent = &root_;
        for (std::size_t i = 1; i < command.path.size(); ++i) {
            const auto child = std::find_if(parent->children.begin(), parent->children.end(),
                                            [&](const auto& other) { return other.name() == command.path[i]; });
            const bool hasOptions = std::any_of(parent->options.begin(), parent->options.end(),
                                                [](const auto& option) { return !option.isBuiltIn; });
            if (hasOptions || !parent->positionals.empty() || child->words.size() > 1 ||
                child->name() == parent->defaultChild) {
                break;
            }
            certain.push_back(child->name());
            parent = &*child;
        }
        return certain;
    }

    /// The last completion stands first among those that keep their order.
    void addSubcommands(const CompletionCommand& command, const std::vector<std::string>& path,
                        const std::vector<std::string>& first, std::size_t position) {
        std::vector<const CompletionCommand*> children = command.displayedChildren();
        std::reverse(children.begin(), children.end());
        for (const CompletionCommand* child : children) {
            text_ += completeTool() + positionalCondition(path, first, position) + " -fka " +
                     argumentList({child->name()}) + description(child->description) + "\n";
        }
    }

    std::string positionalCondition(const std::vector<std::string>& path, const std::vector<std::string>& first,
                                    std::size_t position) const {
        return " -n '" + helper("_should_offer_completions_for_positional") + " \"" + words(path) + "\" \"" +
               words(first) + "\" " + std::to_string(position) + "'";
    }

    static std::string description(const std::string& text) { return text.empty() ? "" : " -d " + fishQuoted(text); }

    void addOption(const CompletionInput& option, const CompletionCommand& command) {
        std::string line = completeTool() + " -n '" + helper("_should_offer_completions_for_flags_or_options") + " \"" +
                           words(command.path) + "\" \"" + words(firstWords(command)) + "\"";
        if (!option.isRepeating) {
            for (const std::string& synopsis : option.alternatives) {
                line += " " + variableName(synopsis);
            }
        }
        line += "'";
        for (const Name& name : option.names) {
            const char* form = name.kind == Name::Kind::longName    ? " -l "
                               : name.kind == Name::Kind::shortName ? " -s "
                                                                    : " -o ";
            line += form + fishQuoted(name.text);
        }
        line += description(option.description);
        if (option.takesValue) {
            const std::string values = valueCompletions(option, command);
            line += " -r" + (values.empty() ? "f" : values);
        }
        text_ += line + "\n";
    }

    /// The letters and arguments that go on behind a "-"; empty for no values to offer.
    std::string valueCompletions(const CompletionInput& input, const CompletionCommand& command) const {
        struct Kinds {
            const FishScript& script;
            const CompletionInput& input;
            const CompletionCommand& command;

            std::string operator()(const CompletionKind::Default&) const { return {}; }
            std::string operator()(const CompletionKind::List& list) const {
                return "fka " + argumentList(list.values);
            }
            std::string operator()(const CompletionKind::File& file) const {
                return file.extensions.empty() ? "F" : output(script.helper("_complete_files"), file.extensions);
            }
            std::string operator()(const CompletionKind::Directory&) const {
                return output(script.helper("_complete_directories"), {});
            }
            std::string operator()(const CompletionKind::ShellCommand& shell) const {
                return "fka " + fishQuoted("(" + std::string(shell.command) + ")");
            }
            std::string operator()(const CompletionKind::Custom&) const { return custom(); }
            std::string operator()(const CompletionKind::CustomAsync&) const { return custom(); }
            std::string operator()(const CompletionKind::CustomDeprecated&) const { return custom(); }

            static std::string output(std::string call, const std::vector<std::string_view>& arguments) {
                for (const std::string_view argument : arguments) {
                    call += " " + fishQuoted(argument);
                }
                return "fka " + fishQuoted("(" + call + ")");
            }
            std::string custom() const {
                const std::string request = candidateRequest(command.path, input.identifier);
                return "fka " + fishQuoted("(" + script.helper("_custom_completion") + " " + request + ")");
            }
        };
        return std::visit(Kinds{*this, input, command}, input.completion.value);
    }

    const CompletionCommand& root_;
    std::string toolIdentifier_;
    std::string text_;
};

} // namespace

std::string fishCompletionScript(const CompletionCommand& root) {
    return FishScript(root).text();
}

} // namespace argumentparser
