// Which room of src may include which.
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

/// What a file of each room may include beside its own; a name that ends in a slash stands for all rooms below it.
const std::map<std::string, std::set<std::string>> arrows{
    {"platform", {}},
    {"platform/text", {}},
    {"platform/files", {"platform/text"}},
    {"platform/http", {"platform/text"}},
    {"platform/json", {"platform/text"}},
    {"platform/time", {"platform/text"}},
    // One room of two doors: what a command's author includes of the declarations stands at the top.
    {"ArgumentParser", {"ArgumentParser/declaration", "platform/"}},
    {"ArgumentParser/declaration", {"ArgumentParser", "platform/"}},
    {"ArgumentParser/parsing", {"ArgumentParser", "ArgumentParser/declaration", "platform/"}},
    {"ArgumentParser/help", {"ArgumentParser", "ArgumentParser/declaration", "platform/"}},
    {"ArgumentParser/description", {"ArgumentParser/declaration", "ArgumentParser/help", "platform/"}},
    {"ArgumentParser/completions",
     {"ArgumentParser", "ArgumentParser/declaration", "ArgumentParser/parsing", "ArgumentParser/help", "platform/"}},
    {"ArgumentParser/messages",
     {"ArgumentParser", "ArgumentParser/declaration", "ArgumentParser/help", "ArgumentParser/description",
      "ArgumentParser/completions", "platform/"}},
    {"RunCommandLine", {"ArgumentParser", "ArgumentParser/", "platform/"}},
    {"core", {"ArgumentParser", "platform", "platform/"}},
    {"core/output", {"platform/"}},
    {"core/service", {"core", "core/output", "ArgumentParser", "platform/"}},
    {"core/inputs", {"core", "core/output", "core/service", "ArgumentParser", "platform/"}},
};
/// Any other room is a family of commands.
const std::set<std::string> familysArrows{"core", "core/", "ArgumentParser", "platform/"};

/// The room of a file, by its path below src.
std::string roomOf(const fs::path& file) {
    return file.stem() == "RunCommandLine" ? "RunCommandLine" : file.parent_path().string();
}

bool mayInclude(const std::string& from, const std::string& to) {
    const auto found = arrows.find(from);
    const std::set<std::string>& allowed = found == arrows.end() ? familysArrows : found->second;
    const bool isEntry = from.empty();
    return isEntry || from == to || allowed.contains(to) || allowed.contains(to.substr(0, to.find('/') + 1));
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
    std::size_t count = 0;
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
            ++count;
            EXPECT_TRUE(mayInclude(roomOf(file), roomOf(target)))
                << "src/" << file.string() << ":" << number << ": " << roomOf(file) << " must not include "
                << target.string();
        }
    }
    EXPECT_GT(count, 100U);
}

} // namespace
