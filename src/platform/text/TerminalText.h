// Text of others on a person's terminal, which must show it and never obey it.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// `text` with everything that would steer a terminal written out instead: control characters as "^[", bidirectional
/// controls and line separators as "<U+202E>". Line feeds and tabs stay, and so do the joiners that emoji and scripts
/// need. A malformed sequence becomes U+FFFD.
std::string terminalText(std::string_view text);

/// The same for a piece of a line: line feeds and tabs are written out as well.
std::string terminalLine(std::string_view text);

/// The same for JSON or a piece of it, which stays the same JSON: in its texts such as "\u202e" is written in place of
/// the character, and a carriage return, which can only stand between its values, becomes a blank.
std::string terminalJson(std::string_view json);

} // namespace platform
