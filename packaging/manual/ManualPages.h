// The manual: a page for the tool and one for each group of its commands, made of the tool's own description and
// of texts written by hand, which have the examples; and one for what commands share.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "ArgumentParser/description/ToolInfo.h"

namespace manual {

struct ManualPage {
    std::string name; ///< Such as "orvane-cli-skill.1".
    std::string text;
};

/// Gives what is written for a page, such as "orvane-cli-skill", as `roffOf` takes it. Throws when nothing is.
using WrittenTexts = std::function<std::string(const std::string& page)>;

/// The page of `root` first. `version` names the tool and its version. Throws std::runtime_error for a page without
/// examples.
std::vector<ManualPage> manualPages(const argumentparser::CommandInfoV0& root, std::string_view version,
                                    const WrittenTexts& texts);

} // namespace manual
