// Which directory of src may include which. A directory that is not named here is a family of commands.
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

const std::map<std::string, std::set<std::string>> foundations{
    {"platform", {}},
    {"ArgumentParser", {"platform"}},
    {"core", {"platform", "ArgumentParser"}},
};
const std::set<std::string> familiesMayInclude{"platform", "ArgumentParser", "core"};
const std::set<std::string> mayIncludeAll{"main.cpp", "RootCommand.h", "RootCommand.cpp"};

/// The directory of a path below src; for a file of src itself, its own name.
std::string directoryOf(const fs::path& path) {
    return path.begin()->string();
}

bool mayInclude(const std::string& from, const std::string& to) {
    const auto foundation = foundations.find(from);
    return from == to || mayIncludeAll.contains(from) ||
           (foundation == foundations.end() ? familiesMayInclude : foundation->second).contains(to);
}

/// What an include line names, relative to src; empty when that is no file of src.
fs::path included(const fs::path& source, const fs::path& file, const std::string& name) {
    const fs::path beside = (file.parent_path() / name).lexically_normal();
    const fs::path found = fs::exists(source / beside) ? beside : fs::path(name).lexically_normal();
    return fs::is_regular_file(source / found) ? found : fs::path();
}

TEST(Arrows, PointOneWay) {
    const fs::path source = SOURCE_DIRECTORY;
    const std::regex include(R"re(\s*#\s*include\s*["<]([^">]+)[">].*)re");
    std::size_t arrows = 0;
    for (const auto& entry : fs::recursive_directory_iterator(source)) {
        const fs::path file = entry.path().lexically_relative(source);
        std::ifstream text(entry.path());
        std::size_t number = 0;
        for (std::string line; entry.is_regular_file() && std::getline(text, line);) {
            ++number;
            std::smatch match;
            if (!std::regex_match(line, match, include)) {
                continue;
            }
            const fs::path target = included(source, file, match[1]);
            if (target.empty()) {
                continue;
            }
            ++arrows;
            EXPECT_TRUE(mayInclude(directoryOf(file), directoryOf(target)))
                << "src/" << file.string() << ":" << number << ": " << directoryOf(file) << " must not include "
                << target.string();
        }
    }
    EXPECT_GT(arrows, 100U);
}

} // namespace
