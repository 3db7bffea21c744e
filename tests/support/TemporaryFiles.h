// A directory for the files that a test gives the tool.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

namespace testsupport {

/// A fixture whose `directory` is there from construction to destruction.
class TemporaryFiles : public testing::Test {
protected:
    TemporaryFiles() : directory(testing::TempDir() + "orvane-files-XXXXXX") {
        EXPECT_NE(mkdtemp(directory.data()), nullptr);
    }
    ~TemporaryFiles() override { std::filesystem::remove_all(directory); }

    /// The path of a file that holds `bytes`.
    std::string file(const std::string& name, const std::string& bytes) const {
        std::ofstream(directory + "/" + name, std::ios::binary) << bytes;
        return directory + "/" + name;
    }

    std::string directory;
};

} // namespace testsupport
