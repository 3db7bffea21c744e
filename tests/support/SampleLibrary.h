// The sample library as a test's service: a real one, with a state.
#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

namespace testsupport {

/// Runs from construction, which waits until it serves, to destruction.
class SampleLibrary {
public:
    /// `err` is the file that its standard error is added to, if any. Throws std::system_error or std::runtime_error
    /// when it does not come up.
    explicit SampleLibrary(std::vector<std::string> options = {}, const std::string& err = {});
    ~SampleLibrary();
    SampleLibrary(const SampleLibrary&) = delete;
    SampleLibrary& operator=(const SampleLibrary&) = delete;

private:
    pid_t process_ = -1;
};

} // namespace testsupport
