#include "platform/Files.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/Text.h"

namespace platform {

std::string homeDirectory() {
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
        return home;
    }
    const passwd* user = ::getpwuid(::getuid());
    return user == nullptr ? std::string() : user->pw_dir;
}

std::string expandTilde(std::string_view path) {
    if (!path.starts_with('~')) {
        return std::string(path);
    }
    const std::size_t end = std::min(path.find('/'), path.size());
    const std::string user(path.substr(1, end - 1));
    std::string home;
    if (user.empty()) {
        home = homeDirectory();
    } else if (const passwd* entry = ::getpwnam(user.c_str())) {
        home = entry->pw_dir;
    }
    return home.empty() ? std::string(path) : home + std::string(path.substr(end));
}

bool fileExists(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

std::optional<std::string> readFile(const std::string& path) {
    constexpr std::size_t leastRead = 64 * 1024;
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return std::nullopt;
    }
    struct stat status {};
    std::string text;
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
        text.resize(static_cast<std::size_t>(status.st_size) + 1); // one more, to see the end without growing
    }
    std::size_t length = 0;
    ssize_t count = 0;
    do {
        if (length == text.size()) {
            text.resize(length + std::max(length, leastRead));
        }
        count = ::read(descriptor, text.data() + length, text.size() - length);
        length += count > 0 ? static_cast<std::size_t>(count) : 0;
    } while (count > 0 || (count < 0 && errno == EINTR));
    ::close(descriptor);
    text.resize(length);
    return count < 0 ? std::nullopt : std::optional(std::move(text));
}

std::string currentDirectory() {
    char* directory = ::getcwd(nullptr, 0);
    if (directory == nullptr) {
        throw std::system_error(errno, std::generic_category(), "Could not tell the current directory");
    }
    std::string path(directory);
    std::free(directory);
    return path;
}

std::string standardizedPath(std::string_view path) {
    std::vector<std::string_view> names;
    for (const std::string_view name : split(path, '/')) {
        if (name == "..") {
            if (!names.empty()) {
                names.pop_back();
            }
        } else if (!name.empty() && name != ".") {
            names.push_back(name);
        }
    }
    std::string result;
    for (const std::string_view name : names) {
        result.append("/").append(name);
    }
    return result.empty() ? "/" : result;
}

} // namespace platform
