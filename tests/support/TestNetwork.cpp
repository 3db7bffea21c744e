#include "support/TestNetwork.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/ScriptedService.h"

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

/// The file may be another user's, whom the sticky temporary directory protects from more than reading.
int openLock(const char* path) {
    const int file = ::open(path, O_RDONLY | O_CLOEXEC);
    return file >= 0 || errno != ENOENT ? file : ::open(path, O_RDONLY | O_CREAT | O_CLOEXEC, 0644);
}

/// The lock is held until the process ends.
void waitForLock() {
    const auto path = std::filesystem::temp_directory_path() / "orvane-tests.lock";
    const int file = openLock(path.c_str());
    int outcome = file < 0 ? -1 : 0;
    while (file >= 0 && (outcome = ::flock(file, LOCK_EX)) != 0 && errno == EINTR) {
        ;
    }
    if (outcome != 0) {
        throw std::system_error(errno, std::generic_category(), path.string());
    }
}

/// Whether loopback has an address of this family and nobody serves on its port; any port will do for "0".
bool canListenOn(int family, const std::string& port) {
    addrinfo hints{};
    hints.ai_family = family;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* loopback = nullptr;
    if (::getaddrinfo(nullptr, port.c_str(), &hints, &loopback) != 0) {
        return false;
    }
    const int socket = ::socket(family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    const bool can = socket >= 0 && ::bind(socket, loopback->ai_addr, loopback->ai_addrlen) == 0;
    ::close(socket);
    ::freeaddrinfo(loopback);
    return can;
}

} // namespace

void isolateNetwork() {
    if (canEnterOwnNetwork()) {
        isOwn = enterOwnNetwork();
        if (!isOwn) {
            throw std::system_error(errno, std::generic_category(), "cannot enter a network of its own");
        }
        return;
    }
    waitForLock();
    const std::string port = std::to_string(applicationPort);
    if (!canListenOn(AF_INET, port) || (hasIPv6() && !canListenOn(AF_INET6, port))) {
        throw std::runtime_error("port " + port +
                                 " is in use, probably by the Orvane application or a sample library, and this system "
                                 "gives the tests no network of their own; end what serves there and try again");
    }
}

bool networkIsOwn() {
    return isOwn;
}

bool hasIPv6() {
    return canListenOn(AF_INET6, "0");
}

} // namespace testsupport
