// A command as a type: its words, its inputs in order of declaration, and two hooks.
//
//     struct Search final : ParsableCommand {
//         static CommandConfiguration configuration() { return {.commandName = "search", .abstract = "…"}; }
//
//         Argument<std::string> query{*this, "query", "The search query."};
//         Option<int> limit{*this, "limit", 10, "Maximum number of results."};
//
//         void validate() const override;
//         void run() const override;
//     };
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "ArgumentParser/CommandType.h"
#include "ArgumentParser/CompletionKind.h"
#include "ArgumentParser/declaration/ArgumentSet.h"
#include "ArgumentParser/declaration/Occurrence.h"

namespace argumentparser {

class DecodedCommands;
class ParsableArguments;

/// What the option groups around an input give it.
struct InputContext {
    std::vector<std::string_view> path = {};
    std::string_view parentTitle = {};
    ArgumentVisibility visibility = ArgumentVisibility::shown;

    InputKey key(std::string_view name) const { return {name, path}; }
};

/// What an owner knows of one of its inputs.
class DeclaredInput {
public:
    virtual void addDefinitions(ArgumentSet& arguments, const InputContext& context) = 0;
    /// Takes one occurrence of one of the definitions that the input has added. Throws ParserError.
    virtual void record(const ArgumentDefinition&, const Occurrence&) {}
    /// Ends the input's decoding, when everything was recorded. Throws ParserError when a required value is missing.
    virtual void decode(const DecodedCommands& ancestors, const InputContext& context) = 0;

    /// The declared default for display; empty for none. To be asked before anything is recorded.
    virtual std::string defaultValueText() const { return {}; }
    /// The closed set of values; empty when open.
    virtual std::vector<std::string_view> allValueStrings() const { return {}; }
    /// The descriptions of those that have one.
    virtual ValueDescriptions allValueDescriptions() const { return {}; }
    virtual CompletionKind completion() const { return {}; }

    DeclaredInput(const DeclaredInput&) = delete;
    DeclaredInput& operator=(const DeclaredInput&) = delete;

protected:
    explicit DeclaredInput(ParsableArguments& owner);
    ~DeclaredInput() = default;
};

/// A set of declared inputs that can be decoded from a command line. The inputs are members, constructed with their
/// owner, so that their order is the order of declaration.
class ParsableArguments {
public:
    ParsableArguments() = default;
    ParsableArguments(const ParsableArguments&) = delete;
    ParsableArguments& operator=(const ParsableArguments&) = delete;
    virtual ~ParsableArguments() = default;

    /// Checks the decoded inputs, before anything runs. Throws ValidationError, or anything else that shall end the
    /// process.
    virtual void validate() const {}

    ArgumentSet argumentSet();
    void addDefinitions(ArgumentSet& arguments, const InputContext& context);
    void decode(const DecodedCommands& ancestors, const InputContext& context);

private:
    friend class DeclaredInput;
    std::vector<DeclaredInput*> inputs_;
};

class ParsableCommand : public ParsableArguments {
public:
    /// Does the command's work. Without an override it asks for the command's help.
    virtual void run() const;

private:
    friend class CommandType;
    std::optional<CommandType> type_;
};

/// Children under a titled section of their own.
struct CommandGroup {
    std::string_view name;
    std::vector<CommandType> subcommands;
};

/// A command's words and its place in the tree. All texts are static.
struct CommandConfiguration {
    std::string_view commandName = {}; ///< Empty: the type's name in kebab case.
    /// Stands ahead of the root's name in usage, for a tool that is a plug-in of another.
    std::string_view _superCommandName = {};
    std::string_view abstract = {};
    std::optional<std::string_view> usage = {}; ///< Replaces the generated usage; empty for no usage at all.
    std::string_view discussion = {};
    std::string_view version = {}; ///< Not empty: `--version` exists for this command and those below it.
    bool shouldDisplay = true;     ///< False leaves the command out of its parent's help; it runs all the same.
    std::vector<CommandType> ungroupedSubcommands = {};
    std::vector<CommandGroup> groupedSubcommands = {};
    std::optional<CommandType> defaultSubcommand = {}; ///< Runs when no subcommand's word is given.
    /// The help flag's names: nothing for the nearest ancestor's, in the end `-h` and `--help`; no names for no flag.
    std::optional<NameSpecification> helpNames = {};
    std::vector<std::string_view> aliases = {}; ///< Further words that select this command.

    /// All children in order of display.
    std::vector<CommandType> subcommands() const;
};

} // namespace argumentparser
