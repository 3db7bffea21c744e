// What a declaration says about an input for help screens.
#pragma once

#include <optional>
#include <string_view>

#include "ArgumentParser/ExpressibleByArgument.h"

namespace argumentparser {

enum class ArgumentVisibility {
    shown,        ///< The default.
    hidden,       ///< Only on the help screen that shows hidden inputs.
    privateInput, ///< Never shown; parsed all the same.
};

/// A longer text below an input's row: a fixed text, or a type's values with their descriptions, one to a line, below
/// an optional preamble.
struct ArgumentDiscussion {
    std::string_view staticText = {}; ///< The preamble when `enumerated` is set.
    std::optional<ValueTable> enumerated = {};
};

/// All texts are static.
struct ArgumentHelp {
    struct Details {
        ArgumentDiscussion discussion = {};
        std::string_view valueName = {}; ///< Empty: derived from the input's name.
        ArgumentVisibility visibility = ArgumentVisibility::shown;
        std::optional<ValueTable> argumentType = {}; ///< Its values make the discussion an enumerated one.
    };

    std::string_view abstract;
    ArgumentDiscussion discussion;
    std::string_view valueName;
    ArgumentVisibility visibility;

    ArgumentHelp(const char* text) : ArgumentHelp(std::string_view(text), Details()) {}
    ArgumentHelp(std::string_view text, const Details& details)
        : abstract(text), discussion(details.discussion), valueName(details.valueName), visibility(details.visibility) {
        if (details.argumentType) {
            discussion.enumerated = details.argumentType;
        }
    }
};

} // namespace argumentparser
