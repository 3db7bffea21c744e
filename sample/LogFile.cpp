#include "LogFile.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

namespace sample {

namespace {

[[noreturn]] void fail(const std::string& path) {
    throw std::runtime_error(path + " cannot be written: " + std::strerror(errno) + ".");
}

} // namespace

LogFile::LogFile(const std::string& path)
    : path_(path), file_(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644)) {
    if (file_ < 0) {
        fail(path_);
    }
}

LogFile::~LogFile() {
    ::close(file_);
}

void LogFile::add(std::string_view text) const {
    while (!text.empty()) {
        const ssize_t size = ::write(file_, text.data(), text.size());
        if (size < 0 && errno != EINTR) {
            fail(path_);
        }
        text.remove_prefix(size < 0 ? 0 : static_cast<std::size_t>(size));
    }
}

} // namespace sample
