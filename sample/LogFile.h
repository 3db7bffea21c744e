// Where exchanges are written.
#pragma once

#include <string>
#include <string_view>

namespace sample {

/// A file that is added to. Each text goes out at once and as a whole.
class LogFile {
public:
    /// Throws std::runtime_error when the file cannot be opened.
    explicit LogFile(const std::string& path);
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    /// Throws std::runtime_error when `text` cannot be written.
    void add(std::string_view text) const;

private:
    std::string path_;
    int file_;
};

} // namespace sample
