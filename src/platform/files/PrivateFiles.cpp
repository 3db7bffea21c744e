#include "platform/files/PrivateFiles.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/files/Files.h"

namespace platform {

namespace {

constexpr mode_t othersRights = S_IRWXG | S_IRWXO;

/// What the last system call failed of.
std::system_error failure(const std::string& what) {
    return {errno, std::generic_category(), what};
}

std::runtime_error unfit(const std::string& directory, const char* reason) {
    return std::runtime_error("Could not use " + directory + ": " + reason);
}

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return number_; }
    bool isOpen() const { return number_ >= 0; }
    /// Whether all that was written is accepted, which some file systems only say now.
    bool close() { return !isOpen() || ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

/// What is created meanwhile has all the rights it asks for that are the owner's, and none of the others'.
class PrivateMode {
public:
    PrivateMode() : before_(::umask(othersRights)) {}
    ~PrivateMode() { ::umask(before_); }
    PrivateMode(const PrivateMode&) = delete;
    PrivateMode& operator=(const PrivateMode&) = delete;

private:
    mode_t before_;
};

/// Whether a signal ends a process that does not handle it, and can wait. One that tells of a fault of the program
/// itself can't: there is no going on behind the fault.
bool canEndProcessLater(int signal) {
    constexpr int faults[]{SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP, SIGSYS};
    constexpr int harmless[]{SIGSTOP, SIGTSTP, SIGTTIN, SIGTTOU, SIGCONT, SIGCHLD, SIGURG, SIGWINCH};
    return std::ranges::find(faults, signal) == std::end(faults) &&
           std::ranges::find(harmless, signal) == std::end(harmless);
}

/// Signals that would end the process take effect at the end of this object, so that there is time to clean up. Those
/// that the process ignores anyway are let be. A file that grows too large is an error and no signal meanwhile.
class HeldSignals {
public:
    HeldSignals() {
        sizeSignal_ = std::signal(SIGXFSZ, SIG_IGN);
        sigemptyset(&held_);
        for (int signal = 1; signal <= SIGRTMAX; ++signal) {
            struct sigaction action {};
            if (canEndProcessLater(signal) && ::sigaction(signal, nullptr, &action) == 0 &&
                action.sa_handler != SIG_IGN) {
                sigaddset(&held_, signal);
            }
        }
        ::sigprocmask(SIG_BLOCK, &held_, &before_);
    }
    ~HeldSignals() {
        std::signal(SIGXFSZ, sizeSignal_);
        ::sigprocmask(SIG_SETMASK, &before_, nullptr);
    }
    HeldSignals(const HeldSignals&) = delete;
    HeldSignals& operator=(const HeldSignals&) = delete;

    /// Throws std::system_error when one came meanwhile.
    void check() const {
        sigset_t pending;
        ::sigpending(&pending);
        // One by one: glibc's sigisemptyset overlooks the real-time ones.
        for (int signal = 1; signal <= SIGRTMAX; ++signal) {
            if (sigismember(&held_, signal) == 1 && sigismember(&pending, signal) == 1) {
                throw std::system_error(std::make_error_code(std::errc::interrupted));
            }
        }
    }

private:
    sigset_t held_{};
    sigset_t before_{};
    void (*sizeSignal_)(int) = SIG_DFL;
};

/// A file with a name that nobody can foresee, beside the one it is to become. Gone with the object until then.
class FileInTheMaking {
public:
    /// `path` is what failures name.
    FileInTheMaking(int directory, std::string path)
        : directory_(directory), path_(std::move(path)), name_(unforeseeableName()),
          file_(::openat(directory, name_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC,
                         S_IRUSR | S_IWUSR)) {
        if (!file_.isOpen()) {
            throw writeFailure();
        }
    }
    ~FileInTheMaking() {
        if (!isDone_) {
            ::unlinkat(directory_, name_.c_str(), 0);
        }
    }
    FileInTheMaking(const FileInTheMaking&) = delete;
    FileInTheMaking& operator=(const FileInTheMaking&) = delete;

    /// How many of `bytes` were written.
    std::size_t write(std::string_view bytes) {
        const ssize_t count = ::write(file_.number(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            throw writeFailure();
        }
        return count < 0 ? 0 : static_cast<std::size_t>(count);
    }

    void become(const std::string& name) {
        if (!file_.close() || ::renameat(directory_, name_.c_str(), directory_, name.c_str()) != 0) {
            throw writeFailure();
        }
        isDone_ = true;
    }

private:
    static std::string unforeseeableName() {
        std::uint64_t number = 0;
        if (::getrandom(&number, sizeof number, 0) != sizeof number) {
            throw failure("Could not get a random number");
        }
        return ".new-" + std::to_string(number);
    }

    std::system_error writeFailure() const { return failure("Could not write " + path_); }

    int directory_;
    std::string path_;
    std::string name_;
    Descriptor file_;
    bool isDone_ = false;
};

/// Whether there is something at `path` now.
bool makeDirectory(const std::string& path) {
    return ::mkdir(path.c_str(), S_IRWXU) == 0 || errno == EEXIST;
}

/// Makes a directory, and those above it that are missing. The path is absolute.
void makeDirectories(const std::string& path) {
    if (makeDirectory(path)) {
        return;
    }
    const std::size_t lastName = path.rfind('/');
    if (errno == ENOENT && lastName > 0) {
        makeDirectories(path.substr(0, lastName));
        if (makeDirectory(path)) {
            return;
        }
    }
    throw failure("Could not create " + path);
}

/// Opens a directory, not to read it but to name files in it, and not through a link.
int openDirectory(const std::string& path) {
    const int directory = ::open(path.c_str(), O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (directory < 0 && (errno == ENOTDIR || errno == ELOOP)) {
        throw unfit(path, "it is a link or a file, not a directory");
    }
    if (directory < 0) {
        throw failure("Could not open " + path);
    }
    return directory;
}

/// Sees to it that an open directory is the user's alone.
void makePrivate(const Descriptor& directory, const std::string& path) {
    struct stat status {};
    if (::fstat(directory.number(), &status) != 0) {
        throw failure("Could not open " + path);
    }
    if (status.st_uid != ::geteuid()) {
        throw unfit(path, "it belongs to another user");
    }
    if ((status.st_mode & othersRights) != 0 && ::fchmodat(directory.number(), ".", S_IRWXU, 0) != 0) {
        throw failure("Could not close " + path + " to other users");
    }
}

} // namespace

std::string temporaryDirectory() {
    const char* setting = std::getenv("TMPDIR");
    std::string directory = setting == nullptr || *setting == '\0' ? "/tmp" : setting;
    if (!directory.starts_with('/')) {
        directory = currentDirectory() + "/" + directory;
    }
    return directory.substr(0, directory.find_last_not_of('/') + 1);
}

void writePrivateFile(const PrivateFile& file, std::string_view bytes) {
    constexpr std::size_t bytesAtOnce = 1024 * 1024;
    const PrivateMode mode;
    makeDirectories(file.directory);
    const Descriptor directory(openDirectory(file.directory));
    makePrivate(directory, file.directory);
    const HeldSignals signals;
    FileInTheMaking making(directory.number(), file.path());
    while (!bytes.empty()) {
        signals.check();
        bytes.remove_prefix(making.write(bytes.substr(0, bytesAtOnce)));
    }
    signals.check();
    making.become(file.name);
}

} // namespace platform
