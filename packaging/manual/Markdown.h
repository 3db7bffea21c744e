// The written parts of the manual: plain text in a little of Markdown, such as this project's pages are in.
#pragma once

#include <string>
#include <string_view>

namespace manual {

/// `text` in the markup of manual pages: headings (#), paragraphs, lists (-), blocks indented by four blanks, and words
/// between backquotes. An entry of a list that begins with such a word and a colon is a tag with its text.
std::string roffOf(std::string_view text);

/// Whether `text` shows a command, a line that begins with "    $ ".
bool showsCommand(std::string_view text);

} // namespace manual
