#include <sys/stat.h>
#include <unistd.h>

#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

namespace fs = std::filesystem;

const std::string png = "\x89PNG\r\n\x1A\n";

std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

unsigned modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::lstat(path.c_str(), &status), 0) << path;
    return status.st_mode;
}

/// Downloads into a temporary directory of their own.
class AssetDownloads : public TemporaryFiles {
protected:
    AssetDownloads() : cache(directory + "/orvane-assets"), target(cache + "/" + lowerId + ".png") {}

    /// A run that gets `bytes` and prints the path of the file with them, all below `place`.
    CommandRow downloads(const std::string& asset, const std::string& bytes, const std::string& extension,
                         const std::string& place, Location where = Location::current()) const {
        CommandRow download = row({"asset", "get", asset}, "GET /api/assets/" + lowerId, bytes,
                                  place + "/orvane-assets/" + lowerId + "." + extension + "\n", where);
        download.setting.environment["TMPDIR"] = place;
        return download;
    }
    CommandRow downloads(const std::string& bytes = png, Location where = Location::current()) const {
        return downloads(id, bytes, "png", directory, where);
    }
    static CommandRow failing(CommandRow download, const std::string& message) {
        download.out = "";
        download.err = "Error: " + message + "\n";
        download.status = 1;
        return download;
    }

    std::ptrdiff_t cachedCount() const { return std::distance(fs::directory_iterator(cache), {}); }

    const std::string cache;
    const std::string target;
};

TEST_F(AssetDownloads, AreAskedForByUuidOrCanonicalUrl) {
    const std::string origin = "https://assets.orvane.app";
    for (const std::string& asset : {id, origin + "/v1/" + id, origin + "//v1///" + id + "//"}) {
        expectRow(downloads(asset, png, "png", directory));
    }

    std::vector<std::string> others{"x", "{" + id + "}", origin, origin + "/", origin + "/v1"};
    for (const char* start :
         {"http://assets.orvane.app/v1/", "HTTPS://assets.orvane.app/v1/", "https://x.assets.orvane.app/v1/",
          "https://assets.orvane.appv1/", "https://assets.orvane.app.x/v1/", "https://assets.orvane.app:443/v1/",
          "https://u@assets.orvane.app/v1/", "https:///v1/", "/v1/", "https://assets.orvane.app/",
          "https://assets.orvane.app/V1/", "https://assets.orvane.app/x/v1/", "https://assets.orvane.app/v1/./"}) {
        others.push_back(start + id);
    }
    for (const char* end : {"x", "/x", "?", "#", "%20"}) {
        others.push_back(origin + "/v1/" + id + end);
    }
    for (const std::string& asset : others) {
        expectRefusedByRun({"asset", "get", asset}, "asset must be a UUID or canonical assets.orvane.app URL.");
    }
}

TEST_F(AssetDownloads, AreNamedForWhatTheyHold) {
    const std::pair<std::string, const char*> images[] = {
        {"\x89PNG", "png"},
        {"\x89PN", "bin"},
        {"\xFF\xD8\xFF", "jpg"},
        {"GIF8", "gif"},
        {std::string("RIFF\0\0\0\0WEBP", 12), "webp"},
        {std::string("RIFF\0\0\0\0WEBX", 12), "bin"},
        {std::string("RIFX\0\0\0\0WEBP", 12), "bin"},
        {"RIFF", "bin"},
        {"", "bin"},
    };
    for (const auto& [bytes, extension] : images) {
        expectRow(downloads(id, bytes, extension, directory));
        EXPECT_EQ(contentOf(cache + "/" + lowerId + "." + extension), bytes);
    }
}

TEST_F(AssetDownloads, ReplaceWhatIsThereWhole) {
    const auto expectPrivate = [&] {
        EXPECT_EQ(modeOf(cache), S_IFDIR | 0700U);
        EXPECT_EQ(modeOf(target), S_IFREG | 0600U);
        EXPECT_EQ(cachedCount(), 1);
    };
    for (const mode_t mask : {mode_t{0777}, mode_t{0}}) {
        const mode_t before = ::umask(mask);
        fs::remove_all(cache);
        expectRow(downloads());
        ::umask(before);
        expectPrivate();
    }
    fs::permissions(target, fs::perms::all);
    fs::permissions(cache, fs::perms::all);
    std::ifstream reader(target, std::ios::binary);
    const std::string large = png + std::string(3'000'000, '\n');
    expectRow(downloads(large));
    expectPrivate();
    EXPECT_TRUE(contentOf(target) == large);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), png);
}

TEST_F(AssetDownloads, FollowNoLinks) {
    const CommandRow refused =
        failing(downloads(), "Could not use " + cache + ": it is a link or a file, not a directory");
    fs::create_symlink(directory, cache);
    expectRow(refused);
    fs::remove(cache);
    EXPECT_TRUE(fs::is_empty(directory));
    file("orvane-assets", "");
    expectRow(refused);
    fs::remove(cache);

    fs::create_directory(cache);
    const std::string victim = file("victim", "old");
    fs::create_symlink(victim, target);
    expectRow(downloads());
    EXPECT_EQ(contentOf(victim), "old");
    if (::chown(cache.c_str(), 1, 1) == 0) { // Only the superuser can give a directory away.
        expectRow(failing(downloads(), "Could not use " + cache + ": it belongs to another user"));
    }
}

TEST_F(AssetDownloads, SayWhatIsWrongAndLeaveNothing) {
    CommandRow limited =
        failing(downloads(png + std::string(100'000, 'x')), "Could not write " + target + ": File too large");
    limited.setting.binary = "/bin/sh";
    limited.arguments = {"-c", "ulimit -f 1; exec \"$0\" asset get " + id, toolBinary()};
    expectRow(limited);
    EXPECT_EQ(cachedCount(), 0);
    fs::create_directories(target + "/x");
    expectRow(failing(downloads(), "Could not write " + target + ": Is a directory"));
    EXPECT_EQ(cachedCount(), 1);
    expectRow(
        failing(downloads(id, png, "png", "/proc/none"), "Could not create /proc/none: No such file or directory"));
}

TEST_F(AssetDownloads, GoWhereTheSystemHasItsTemporaryFiles) {
    CommandRow elsewhere = downloads(id, png, "png", directory + "/a//b");
    elsewhere.setting.environment["TMPDIR"] = "a//b/";
    elsewhere.setting.directory = directory;
    expectRow(elsewhere);
    EXPECT_EQ(modeOf(directory + "/a"), S_IFDIR | 0700U);
}

class AssetUploads : public TemporaryFiles {
protected:
    /// A run that sends the file at `path` as `base64` and `name`, in JSON's form, and prints the answer's text.
    static CommandRow uploads(const std::string& path, const std::string& base64, const std::string& name,
                              Location where = Location::current()) {
        return row({"asset", "upload", id, path},
                   "POST /api/assets\n{\"contextId\":\"" + id + "\",\"data\":\"" + base64 +
                       "\",\"originalFilename\":\"" + name + "\"}",
                   R"({"markdown":"![a]\n\t<c>\u001b[m","id":1})", "![a]\n\t<c>\x1B[m\n", where);
    }
};

TEST_F(AssetUploads, SendTheFileInBase64) {
    for (const auto& [bytes, base64] :
         std::vector<std::pair<std::string, std::string>>{{"", ""}, {"\xFF\xFE", "//4="}, {"\xFB\xEF\xBE", "++++"}}) {
        expectRow(uploads(file("a b.png", bytes), base64, "a b.png"));
    }
    std::string large;
    std::string encoded;
    for (int i = 0; i < 20'000; ++i) {
        large += std::string("\0\x10\x83\x10Q\x87 \x92\x8B", 9);
        encoded += "ABCDEFGHIJKL";
    }
    expectRow(uploads(file("large", large + "z"), encoded + "eg==", "large"));
    expectServiceRefusal({"asset", "upload", id, file("x", "x")});
}

TEST_F(AssetUploads, TakeThePathAsItIs) {
    const std::string path = file("\xFF\"~", "x");
    CommandRow shown = onTerminal(uploads(path, "eA==", "�\\\"~"));
    shown.out = "![a]\n\t<c>^[[m\n";
    expectRow(shown);
    file("~", "x");
    CommandRow here = uploads("~", "eA==", "~");
    here.setting.directory = directory;
    expectRow(here);
}

TEST_F(AssetUploads, FailOfTheFileOrTheAnswer) {
    const std::string upload = "asset upload " + id + " ";
    expectRefused("asset upload x /none", "context-id must be a UUID.");
    expectFailed(upload + "none/", {}, "Could not read none/: No such file or directory");
    expectFailed(upload + directory, {}, "Could not read " + directory + ": Is a directory");
    const std::string image = file("x", "x");
    for (const char* body : {"[]", R"({"markdown":null})"}) {
        expectFailed(upload + image, {answer(body)}, "Invalid image upload response.");
    }
    expectFailed(upload + image, {answer("")}, "The data is not valid JSON: incomplete JSON.");
}

} // namespace
