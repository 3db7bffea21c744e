// The manual: a page for the tool and one for each group of its commands, made of the tool's own description.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ArgumentParser/description/ToolInfo.h"

namespace manual {

struct ManualPage {
    std::string name; ///< Such as "orvane-cli-skill", without the section.
    std::string text;
};

/// The page of `root` first, with `rootRemarks`, sections in the markup of manual pages, behind its commands. `version`
/// names the tool and its version.
std::vector<ManualPage> manualPages(const argumentparser::CommandInfoV0& root, std::string_view version,
                                    std::string_view rootRemarks);

} // namespace manual
