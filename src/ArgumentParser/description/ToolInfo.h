// A description of a command and everything below it, for other tools to read: what `--experimental-dump-help` prints.
//
// The members of a record are the keys of its JSON object. A text, list, map or optional value that is empty is left
// out there.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace argumentparser {

class Tree;

struct NameInfoV0 {
    std::string kind; ///< "long", "short" or "longWithSingleDash".
    std::string name; ///< Without dashes.

    bool operator==(const NameInfoV0&) const = default;
};

/// In JSON an object with one key, the kind, and as its value an object with what that kind has.
struct CompletionKindV0 {
    std::string kind; ///< "list", "file", "directory", "shellCommand", "custom", "customAsync" or "customDeprecated".
    std::vector<std::string> values = {};     ///< Of a list.
    std::vector<std::string> extensions = {}; ///< Of a file; any when empty.
    std::string command = {};                 ///< Of a shell command.

    bool operator==(const CompletionKindV0&) const = default;
};

struct ArgumentInfoV0 {
    std::string kind; ///< "positional", "option" or "flag".
    bool shouldDisplay = true;
    std::string sectionTitle = {};
    bool isOptional = false;
    bool isRepeating = false;
    std::string parsingStrategy;
    std::vector<NameInfoV0> names = {};
    std::optional<NameInfoV0> preferredName = {};
    std::string valueName = {};
    std::string defaultValue = {};
    std::vector<std::string> allValues = {};
    std::map<std::string, std::string> allValueDescriptions = {};
    std::optional<CompletionKindV0> completionKind = {};
    std::string abstract = {};
    std::string discussion = {}; ///< Of an enumerated one the preamble.

    bool operator==(const ArgumentInfoV0&) const = default;
};

struct CommandInfoV0 {
    std::vector<std::string> superCommands = {}; ///< The names of the ancestors, the root first.
    bool shouldDisplay = true;
    std::string commandName;
    std::vector<std::string> aliases = {};
    std::string abstract = {};
    std::string discussion = {};
    std::string defaultSubcommand = {};
    std::vector<CommandInfoV0> subcommands = {};
    std::vector<ArgumentInfoV0> arguments = {}; ///< The built-in ones included.

    bool operator==(const CommandInfoV0&) const = default;
};

/// By which a reader learns the version of a document before it reads the rest.
struct ToolInfoHeader {
    int serializationVersion = 0;
};

struct ToolInfoV0 {
    int serializationVersion = 0; ///< Always 0.
    CommandInfoV0 command;

    bool operator==(const ToolInfoV0&) const = default;
};

/// The description of the command at `node` and of those below it.
ToolInfoV0 toolInfo(const Tree& node);

/// The description as indented JSON with its keys sorted.
std::string encoded(const ToolInfoV0& info);

/// Both read what `encoded` writes. They throw std::runtime_error, which says what is wrong.
ToolInfoHeader decodedToolInfoHeader(std::string_view json);
ToolInfoV0 decodedToolInfo(std::string_view json);

} // namespace argumentparser
