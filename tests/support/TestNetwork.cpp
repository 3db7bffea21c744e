#include "support/TestNetwork.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace testsupport {

namespace {

bool isOwn = false;

bool writeFile(const char* path, const std::string& text) {
    const int file = ::open(path, O_WRONLY | O_CLOEXEC);
    const bool written = file >= 0 && ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    if (file >= 0) {
        ::close(file);
    }
    return written;
}

/// Each user stays who they are, so that the owners of files mean the same as outside.
bool enterNamespace() {
    if (::unshare(CLONE_NEWNET) == 0) {
        return true;
    }
    const std::string user = std::to_string(::geteuid());
    const std::string group = std::to_string(::getegid());
    return ::unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0 && writeFile("/proc/self/setgroups", "deny") &&
           writeFile("/proc/self/uid_map", user + " " + user + " 1") &&
           writeFile("/proc/self/gid_map", group + " " + group + " 1");
}

bool bringLoopbackUp() {
    const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request{};
    std::strcpy(request.ifr_name, "lo");
    request.ifr_flags = IFF_UP;
    const bool up = socket >= 0 && ::ioctl(socket, SIOCSIFFLAGS, &request) == 0;
    ::close(socket);
    return up;
}

bool enterOwnNetwork() {
    return enterNamespace() && bringLoopbackUp();
}

/// There is no way back from a network that was entered but cannot be used, so a child tries first.
bool canEnterOwnNetwork() {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(enterOwnNetwork() ? 0 : 1);
    }
    int state = 1;
    while (child > 0 && ::waitpid(child, &state, 0) < 0 && errno == EINTR) {
        ;
    }
    return child > 0 && state == 0;
}

/// The lock is held until the process ends.
void waitForLock() {
    const auto path = std::filesystem::temp_directory_path() / "orvane-tests.lock";
    const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    int outcome = file < 0 ? -1 : 0;
    while (file >= 0 && (outcome = ::flock(file, LOCK_EX)) != 0 && errno == EINTR) {
        ;
    }
    if (outcome != 0) {
        throw std::system_error(errno, std::generic_category(), path.string());
    }
}

} // namespace

void isolateNetwork() {
    if (!canEnterOwnNetwork()) {
        waitForLock();
        return;
    }
    isOwn = enterOwnNetwork();
    if (!isOwn) {
        throw std::system_error(errno, std::generic_category(), "cannot enter a network of its own");
    }
}

bool networkIsOwn() {
    return isOwn;
}

bool hasIPv6() {
    const int socket = ::socket(AF_INET6, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in6 address{};
    address.sin6_family = AF_INET6;
    address.sin6_addr = in6addr_loopback;
    const bool bound = socket >= 0 && ::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    ::close(socket);
    return bound;
}

} // namespace testsupport
