#include "ArgumentParser/completions/CompletionTemplates.h"
#include "ArgumentParser/completions/CompletionText.h"
#include "ArgumentParser/completions/CompletionsGenerator.h"
#include "platform/text/Text.h"

namespace argumentparser {

namespace {

std::string names(const std::vector<CompletionInput>& options, bool takesValue, bool isRepeating) {
    std::vector<std::string> all;
    for (const CompletionInput& option : options) {
        if (option.takesValue == takesValue && option.isRepeating == isRepeating) {
            const std::vector<std::string> synopses = option.synopses();
            all.insert(all.end(), synopses.begin(), synopses.end());
        }
    }
    return quotedWords(all, singleQuoted);
}

std::string array(std::string_view name, const std::string& elements) {
    return "    " + std::string(name) + "=(" + elements + ")\n";
}

/// For `compgen -W`, which expands its words as a command line does.
std::string wordList(const std::vector<std::string>& words) {
    std::string list;
    for (const std::string& word : words) {
        list += (list.empty() ? "" : " ") + backslashed(word, " \t!\"#$&'()*,;<>?[\\]^`{|}~");
    }
    return singleQuoted(list);
}

/// Writes the functions of the commands into one text.
class BashScript {
public:
    explicit BashScript(const CompletionCommand& root)
        : toolIdentifier_(functionName({root.name()}).substr(1)),
          text_(filledIn(bashHelpers, {{"id", toolIdentifier_}})) {
        visitCommands(root, [&](const CompletionCommand& command) { addFunction(command, &command == &root); });
        text_ += "\ncomplete -o filenames -F " + functionName(root.path) + " " + root.name() + "\n";
    }

    const std::string& text() const { return text_; }

private:
    std::string helper(std::string_view suffix) const { return "__" + toolIdentifier_ + std::string(suffix); }

    void addFunction(const CompletionCommand& command, bool isRoot) {
        text_ += "\n" + functionName(command.path) + "() {\n";
        if (isRoot) {
            text_ += filledIn(bashRootStart, {{"id", toolIdentifier_}});
        }
        if (command.isHelp) {
            addHelp(command);
        } else {
            addOptions(command);
            addPositionals(command);
            addSubcommands(command);
        }
        text_ += "}\n";
        if (isRoot) {
            root_ = &command;
        }
    }

    void addOptions(const CompletionCommand& command) {
        const auto& options = command.options;
        text_ += array("repeating_flags", names(options, false, true));
        text_ += array("non_repeating_flags", names(options, false, false));
        text_ += array("repeating_options", names(options, true, true));
        text_ += array("non_repeating_options", names(options, true, false));
        std::vector<std::string> lists;
        std::vector<std::string> alternatives;
        for (const CompletionInput& option : options) {
            if (option.takesSeveralValues()) {
                const std::vector<std::string> synopses = option.synopses();
                lists.insert(lists.end(), synopses.begin(), synopses.end());
            }
            if (option.alternatives.size() > 1 && !option.isRepeating) {
                std::string group = platform::joined(option.alternatives, " ");
                if (alternatives.empty() || alternatives.back() != group) {
                    alternatives.push_back(std::move(group));
                }
            }
        }
        text_ += array("list_options", quotedWords(lists, singleQuoted));
        text_ += array("alternative_names", quotedWords(alternatives, singleQuoted));

        const auto& positionals = command.positionals;
        const bool isEndless = !positionals.empty() && positionals.back().isRepeating;
        const std::string count = isEndless ? "-1" : std::to_string(positionals.size());
        text_ += "    " + helper("_offer_flags_options") + " " + count +
                 (command.children.empty() ? " || return 0\n" : " subcommands\n");

        std::string cases;
        for (const CompletionInput& option : options) {
            const std::string completions = valueCompletions(option, command);
            if (option.takesValue && !completions.empty()) {
                cases += "    " + platform::joined(option.synopses(), " | ") + ")\n" + completions +
                         "        return 0\n        ;;\n";
            }
        }
        const bool takesValues = names(options, true, false) != names(options, true, true);
        if (takesValues) {
            text_ += "\n    # Offer option value completions\n    case \"${prev}\" in\n" + cases +
                     "    ?*) return 0 ;;\n    esac\n";
        }
    }

    void addPositionals(const CompletionCommand& command) {
        std::string cases;
        for (std::size_t i = 0; i < command.positionals.size(); ++i) {
            const CompletionInput& positional = command.positionals[i];
            const std::string completions = valueCompletions(positional, command);
            if (!completions.empty()) {
                const std::string number = positional.isRepeating ? "*" : std::to_string(i + 1);
                const std::string onlyBehindTerminator = positional.parsingStrategy == ParsingStrategy::postTerminator
                                                             ? "        \"${is_behind_terminator}\" || return 0\n"
                                                             : "";
                cases += "    " + number + ")\n" + onlyBehindTerminator + completions +
                         (command.children.empty() ? "        return 0\n        ;;\n" : "        ;;\n");
            } else {
                cases += "    " + std::to_string(i + 1) + ") ;;\n";
            }
        }
        if (cases.find("__") != std::string::npos) {
            text_ +=
                "\n    # Offer positional completions\n    case \"${positional_number}\" in\n" + cases + "    esac\n";
        }
    }

    void addSubcommands(const CompletionCommand& command) {
        if (command.children.empty()) {
            return;
        }
        text_ += "\n    # Offer subcommand / subcommand argument completions\n"
                 "    if ((${#unparsed_words[@]} > 0)) && ! \"${is_behind_terminator}\"; then\n"
                 "        case \"${unparsed_words[0]}\" in\n";
        for (const CompletionCommand& child : command.children) {
            text_ += "        " + quotedPattern(child.words) +
                     ")\n            unparsed_words=(\"${unparsed_words[@]:1}\")\n            " +
                     functionName(child.path) + "\n            return 0\n            ;;\n";
        }
        text_ += "        esac\n    elif ! \"${is_behind_terminator}\"; then\n        " + helper("_add_completions") +
                 " -W " + wordList(childNames(command)) + "\n    fi\n";
        if (const CompletionCommand* child = command.defaultCommand()) {
            text_ += "\n    # Without the word of a subcommand, the words are those of " + child->name() + ".\n    " +
                     functionName(child->path) + "\n";
        }
    }

    static std::string quotedPattern(const std::vector<std::string>& words) {
        std::string pattern;
        for (const std::string& word : words) {
            pattern += (pattern.empty() ? "" : " | ") + singleQuoted(word);
        }
        return pattern;
    }

    static std::vector<std::string> childNames(const CompletionCommand& command) {
        std::vector<std::string> all;
        for (const CompletionCommand* child : command.displayedChildren()) {
            all.push_back(child->name());
        }
        return all;
    }

    /// The words of any command that has subcommands lead to their names.
    void addHelp(const CompletionCommand&) {
        text_ += "    case \"${unparsed_words[*]}\" in\n";
        visitCommands(*root_, [&](const CompletionCommand& command) {
            if (command.isDisplayed && !command.children.empty()) {
                const std::string words = platform::joined({command.path.begin() + 1, command.path.end()}, " ");
                text_ += "    " + singleQuoted(words) + ") " + helper("_add_completions") + " -W " +
                         wordList(childNames(command)) + " ;;\n";
            }
        });
        text_ += "    esac\n";
    }

    /// The lines that offer values of `input`; empty for none.
    std::string valueCompletions(const CompletionInput& input, const CompletionCommand& command) const {
        struct Kinds {
            const BashScript& script;
            const CompletionInput& input;
            const CompletionCommand& command;

            std::string add(const std::string& generator) const {
                return "        " + script.helper("_add_completions") + " " + generator + "\n";
            }
            std::string operator()(const CompletionKind::Default&) const { return {}; }
            std::string operator()(const CompletionKind::List& list) const {
                return add("-W " + wordList({list.values.begin(), list.values.end()}));
            }
            std::string operator()(const CompletionKind::File& file) const {
                if (file.extensions.empty()) {
                    return add("-f");
                }
                const std::string extensions = platform::joined({file.extensions.begin(), file.extensions.end()}, "|");
                return add("-o plusdirs -fX " + singleQuoted("!*.@(" + extensions + ")"));
            }
            std::string operator()(const CompletionKind::Directory&) const { return add("-d"); }
            std::string operator()(const CompletionKind::ShellCommand& shell) const {
                return "        " + script.helper("_add_lines") + " \"$(eval " + singleQuoted(shell.command) + ")\"\n";
            }
            std::string operator()(const CompletionKind::Custom&) const { return custom(); }
            std::string operator()(const CompletionKind::CustomAsync&) const { return custom(); }
            std::string operator()(const CompletionKind::CustomDeprecated&) const { return custom(); }

            std::string custom() const {
                return "        " + script.helper("_custom_complete") + " " +
                       candidateRequest(command.path, singleQuoted(input.identifier)) + " \"${COMP_CWORD}\"\n";
            }
        };
        return input.isOffered ? std::visit(Kinds{*this, input, command}, input.completion.value) : std::string();
    }

    std::string toolIdentifier_;
    std::string text_;
    const CompletionCommand* root_ = nullptr;
};

} // namespace

std::string bashCompletionScript(const CompletionCommand& root) {
    return BashScript(root).text();
}

} // namespace argumentparser
