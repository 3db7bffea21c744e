// The help screen of a command.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ArgumentParser/ParsableCommand.h"

namespace argumentparser {

/// The definitions that the framework adds to a command: the version flag where `stack` has a version, then the help
/// flag where it is on. They only carry names and texts.
std::vector<ArgumentDefinition> builtInDefinitions(const std::vector<CommandType>& stack);

class HelpGenerator {
public:
    struct Section {
        struct Element {
            std::string label;
            std::string abstract;
            ArgumentDiscussion discussion;
        };

        std::string header; ///< Without the colon.
        std::vector<Element> elements;
        bool isSubcommands = false;
    };

    /// The screen of the last command of `stack`, which starts at the root; hidden inputs are shown when `visibility`
    /// is `hidden`.
    HelpGenerator(const std::vector<CommandType>& stack, ArgumentVisibility visibility);

    /// The whole screen, without a final line end beyond its last element's. `columns` defaults to the screen's width.
    std::string rendered(std::optional<int> columns = std::nullopt) const;

private:
    std::vector<CommandType> commandStack_;
    std::string abstract_;
    std::string usage_;
    std::vector<Section> sections_;
};

} // namespace argumentparser
