// Files for the user's eyes alone, in directories that others may share.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The system's directory for temporary files, an absolute path: TMPDIR, else /tmp. It need not exist.
/// Throws std::system_error.
std::string temporaryDirectory();

/// Where a private file goes.
struct PrivateFile {
    std::string directory; ///< An absolute path.
    std::string name;

    std::string path() const { return directory + "/" + name; }
};

/// Writes a file that its owner alone can read, in place of one that may be there. Whoever looks sees the old file or
/// the whole new one, and a failure or a signal leaves nothing new.
///
/// The directory is made if it is missing, with those above it, and closed to others if it is not. It must be a real
/// one of the user's own: a link or another user's directory is refused.
///
/// Throws std::runtime_error, which names the path and says why.
void writePrivateFile(const PrivateFile& file, std::string_view bytes);

} // namespace platform
