// How texts are put into completion scripts.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace argumentparser {

/// `text` with a backslash ahead of each of `characters` (ASCII).
std::string backslashed(std::string_view text, std::string_view characters);

/// A word for bash and zsh: between single quotes, one inside written as '\''.
std::string singleQuoted(std::string_view text);

/// A word for fish: between single quotes, one inside and a backslash with a backslash ahead.
std::string fishQuoted(std::string_view text);

/// Each of `words` quoted by `quoted`, with a blank between them.
std::string quotedWords(const std::vector<std::string>& words, std::string (*quoted)(std::string_view));

/// A description for a list that has one line for each candidate: line ends and tabs become blanks.
std::string onOneLine(std::string_view text);

/// The function of the command with these words, the tool's name first: "_my_tool_sub_command".
std::string functionName(const std::vector<std::string>& path);

/// What a script calls the tool with to ask for candidates of an input of the command with these words. The
/// identifier is written as the shell wants it.
std::string candidateRequest(const std::vector<std::string>& path, std::string_view identifier);

/// `text` with each "@key@" replaced by its value.
std::string filledIn(std::string_view text,
                     std::initializer_list<std::pair<std::string_view, std::string_view>> values);

} // namespace argumentparser
