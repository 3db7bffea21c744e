// The help screen of a command.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ArgumentParser/declaration/Tree.h"

namespace argumentparser {

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

    /// The screen of the command at `node`; hidden inputs are shown when `visibility` is `hidden`.
    HelpGenerator(const Tree& node, ArgumentVisibility visibility);

    /// The whole screen, without a final line end beyond its last element's. `columns` defaults to the screen's width.
    std::string rendered(std::optional<int> columns = std::nullopt) const;

private:
    const Tree& node_;
    std::string abstract_;
    std::string usage_;
    std::vector<Section> sections_;
};

} // namespace argumentparser
