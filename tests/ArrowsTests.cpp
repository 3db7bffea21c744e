// Which room of src may include which, and whether the picture in docs shows what includes what.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

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
    {"ArgumentParser/RunCommandLine", {"ArgumentParser", "ArgumentParser/", "platform/"}},
    {"core", {"ArgumentParser", "platform", "platform/"}},
    {"core/output", {"platform/"}},
    {"core/service", {"core", "core/output", "ArgumentParser", "platform/"}},
    {"core/inputs", {"core", "core/output", "core/service", "ArgumentParser", "platform/"}},
};
/// Any other room is a family of commands.
const std::set<std::string> familysArrows{"core", "core/", "ArgumentParser", "platform/"};

/// The room of a file, by its path below src.
std::string roomOf(const fs::path& file) {
    return file.stem() == "RunCommandLine" ? "ArgumentParser/RunCommandLine" : file.parent_path().string();
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

/// An include line whose target is a file of src too.
struct Include {
    fs::path file;
    std::size_t line;
    fs::path target;
};

std::vector<Include> includes() {
    const fs::path source = SOURCE_DIRECTORY;
    const std::regex include(R"re(\s*#\s*include\s*["<]([^">]+)[">].*)re");
    std::vector<Include> includes;
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
            if (const fs::path target = included(source, file, match[1]); !target.empty()) {
                includes.push_back({file, number, target});
            }
        }
    }
    return includes;
}

TEST(Arrows, PointOneWay) {
    const std::vector<Include> all = includes();
    for (const Include& each : all) {
        EXPECT_TRUE(mayInclude(roomOf(each.file), roomOf(each.target)))
            << "src/" << each.file.string() << ":" << each.line << ": " << roomOf(each.file) << " must not include "
            << each.target.string();
    }
    EXPECT_GT(all.size(), 100U);
}

/// The folder at the top of src that a room lies in, with a slash behind it.
std::string folderOf(const std::string& room) {
    return room.substr(0, room.find('/')) + "/";
}

using Arrow = std::pair<std::string, std::string>;

std::set<Arrow> arrowsOfSources() {
    std::set<Arrow> found;
    for (const Include& each : includes()) {
        const std::string from = roomOf(each.file);
        const std::string to = roomOf(each.target);
        if (folderOf(from) != folderOf(to)) {
            found.emplace(folderOf(from), folderOf(to));
        } else if (from != to) {
            found.emplace(from, to);
        }
    }
    return found;
}

std::set<Arrow> arrowsOfPicture() {
    std::ifstream picture(fs::path(README_FILE).parent_path() / "docs/architecture.svg");
    const std::regex title("<title>(.*)&#45;&gt;(.*)</title>");
    std::set<Arrow> found;
    std::smatch match;
    for (std::string line; std::getline(picture, line);) {
        if (std::regex_match(line, match, title)) {
            found.emplace(match[1], match[2]);
        }
    }
    return found;
}

TEST(Arrows, AreThoseOfThePicture) {
    const std::set<Arrow> drawn = arrowsOfPicture();
    const std::set<Arrow> there = arrowsOfSources();
    std::vector<Arrow> wrong;
    std::ranges::set_symmetric_difference(drawn, there, std::back_inserter(wrong));
    for (const auto& [from, to] : wrong) {
        ADD_FAILURE() << from << " -> " << to << (there.contains({from, to}) ? " is not drawn" : " is drawn alone")
                      << ": scripts/draw-architecture draws the picture anew.";
    }
}

} // namespace
