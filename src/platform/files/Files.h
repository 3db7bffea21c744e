// Files and paths.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace platform {

/// The user's home directory: HOME, else what the passwd file says; empty when neither knows.
std::string homeDirectory();

/// `path` with a leading "~" or "~user" replaced by that home directory; unchanged when the user is unknown.
std::string expandTilde(std::string_view path);

bool fileExists(const std::string& path);

/// The whole file. Nothing when it can't be read, a directory included.
std::optional<std::string> readFile(const std::string& path);

/// The same, but throws std::system_error, which names the path and says why, in place of giving nothing.
std::string readFileOrThrow(const std::string& path);

/// Appends what `descriptor` still holds to `text`, waiting for it where there is nothing yet.
std::error_code readToEnd(int descriptor, std::string& text);

/// Throws std::system_error.
std::string currentDirectory();

/// What stands behind the last separator, those at the very end left aside: a file's name.
std::string_view lastPathComponent(std::string_view path);

/// An absolute path with ".", ".." and repeated or final separators resolved by their text alone.
std::string standardizedPath(std::string_view path);

} // namespace platform
