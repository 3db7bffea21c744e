#include "platform/files/Files.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/text/Text.h"

namespace platform {

namespace {

/// The home directory of the first user in the passwd file that `isWanted`; empty when there is none. A static C
/// library can't ask the name services.
template <class IsWanted>
std::string homeFromUserFile(IsWanted isWanted) {
    std::FILE* file = std::fopen("/etc/passwd", "re");
    if (file == nullptr) {
        return {};
    }
    const passwd* user = ::fgetpwent(file);
    while (user != nullptr && !isWanted(*user)) {
        user = ::fgetpwent(file);
    }
    std::fclose(file);
    return user == nullptr ? std::string() : user->pw_dir;
}

std::error_code readFile(const std::string& path, std::string& text) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        return {errno, std::generic_category()};
    }
    struct stat status {};
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) {
        text.reserve(static_cast<std::size_t>(status.st_size));
    }
    const std::error_code error = readToEnd(descriptor, text);
    ::close(descriptor);
    return error;
}

} // namespace

std::string homeDirectory() {
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
        return home;
    }
    return homeFromUserFile([](const passwd& user) { return user.pw_uid == ::getuid(); });
}

std::string expandTilde(std::string_view path) {
    if (!path.starts_with('~')) {
        return std::string(path);
    }
    const std::size_t end = std::min(path.find('/'), path.size());
    const std::string_view name = path.substr(1, end - 1);
    const std::string home =
        name.empty() ? homeDirectory() : homeFromUserFile([&](const passwd& user) { return user.pw_name == name; });
    return home.empty() ? std::string(path) : home + std::string(path.substr(end));
}

bool fileExists(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

std::optional<std::string> readFile(const std::string& path) {
    std::string text;
    return readFile(path, text) ? std::nullopt : std::optional(std::move(text));
}

std::string readFileOrThrow(const std::string& path) {
    std::string text;
    if (const std::error_code error = readFile(path, text)) {
        throw std::system_error(error, "Could not read " + path);
    }
    return text;
}

std::error_code readToEnd(int descriptor, std::string& text) {
    // Through a buffer that stays in the cache: a text made larger to be read into is written to twice.
    std::array<char, 64 * 1024> buffer;
    while (true) {
        const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
        if (count > 0) {
            text.append(buffer.data(), static_cast<std::size_t>(count));
        } else if (count == 0) {
            return {};
        } else if (errno == EAGAIN) {
            pollfd entry{descriptor, POLLIN, 0};
            ::poll(&entry, 1, -1);
        } else if (errno != EINTR) {
            return {errno, std::generic_category()};
        }
    }
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

std::string_view lastPathComponent(std::string_view path) {
    path = path.substr(0, path.find_last_not_of('/') + 1);
    return path.substr(path.rfind('/') + 1);
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
