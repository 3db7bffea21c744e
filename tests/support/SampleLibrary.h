// The sample library as a test's service: a real one, with a state.
#pragma once

#include <string>

#include <sys/types.h>

namespace testsupport {

/// Runs from construction, which waits until it serves, to destruction.
class SampleLibrary {
public:
    /// `zone` is what it finds as TZ. Throws std::system_error or std::runtime_error when it does not come up.
    explicit SampleLibrary(const std::string& zone = "UTC");
    ~SampleLibrary();
    SampleLibrary(const SampleLibrary&) = delete;
    SampleLibrary& operator=(const SampleLibrary&) = delete;

private:
    pid_t process_ = -1;
};

} // namespace testsupport
