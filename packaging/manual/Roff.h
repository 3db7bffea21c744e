// The markup of manual pages.
#pragma once

#include <string>
#include <string_view>

namespace manual {

/// `text` as itself, whatever signs it holds.
std::string escaped(std::string_view text);

/// For what is typed as it stands, and for what stands for something else.
std::string bold(std::string_view text);
std::string italic(std::string_view text);

/// Paragraphs, one for each run of lines in `text`, whose line ends are kept. Ends its line.
std::string paragraphs(std::string_view text);

} // namespace manual
