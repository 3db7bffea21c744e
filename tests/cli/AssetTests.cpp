#include <sys/stat.h>
#include <unistd.h>

#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

namespace fs = std::filesystem;

const std::string lowerId = "7f1b103c-df15-42b0-aab4-77d26415479c";
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
    ~AssetDownloads() override { ::umask(umask_); }

    /// A run that gets `bytes` and prints the path of a file with them.
    CommandRow downloads(const std::string& asset, const std::string& bytes = png, const std::string& extension = "png",
                         Location where = Location::current()) const {
        CommandRow download = row({"asset", "get", asset}, "GET /api/assets/" + lowerId, bytes,
                                  cache + "/" + lowerId + "." + extension + "\n", where);
        download.setting.environment["TMPDIR"] = directory;
        return download;
    }

    void expectFailedDownload(const std::string& message, const std::string& temporaryDirectory,
                              Location where = Location::current()) const {
        CommandRow download = downloads(id, png, "png", where);
        download.setting.environment["TMPDIR"] = temporaryDirectory;
        download.out = "";
        download.err = "Error: " + message + "\n";
        download.status = 1;
        expectRow(download);
    }

    std::vector<std::string> cached() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(cache)) {
            names.push_back(entry.path().filename());
        }
        return names;
    }

    const std::string cache;
    const std::string target;

private:
    const mode_t umask_ = ::umask(022);
};

TEST_F(AssetDownloads, AreNamedByUuidOrCanonicalUrl) {
    const std::string origin = "https://assets.orvane.app";
    for (const std::string& asset : {id, origin + "/v1/" + id, origin + "//v1///" + id + "//"}) {
        expectRow(downloads(asset));
    }
    expectServiceRefusal("asset get " + id);
    for (const std::string& asset : {std::string("x"),
                                     "{" + id + "}",
                                     origin + "/" + id,
                                     origin + "/v1",
                                     origin + "/v2/" + id,
                                     origin + "/v1/" + id + "x",
                                     origin + "/v1/" + id + "/x",
                                     origin + "/x/v1/" + id,
                                     origin + "/v1/./" + id,
                                     origin + "/" + id + "/v1",
                                     origin + "/v1/" + id + "?",
                                     origin + "/v1/" + id + "?a=b",
                                     origin + "/v1/" + id + "#",
                                     origin + "/v1/" + id + "#a",
                                     origin + "/v1/" + id + "/?",
                                     "/v1/" + id,
                                     origin + "/v%31/" + id,
                                     origin + "/V1/" + id,
                                     origin + ":443/v1/" + id,
                                     origin + ":/v1/" + id,
                                     origin + "./v1/" + id,
                                     origin + "x/v1/" + id,
                                     origin + "\\v1\\" + id,
                                     "https://user@assets.orvane.app/v1/" + id,
                                     "https://:p@assets.orvane.app/v1/" + id,
                                     "https://@assets.orvane.app/v1/" + id,
                                     "http://assets.orvane.app/v1/" + id,
                                     "HTTPS://assets.orvane.app/v1/" + id,
                                     "https://Assets.orvane.app/v1/" + id,
                                     "https://x.assets.orvane.app/v1/" + id,
                                     "https://orvane.app/v1/" + id,
                                     "https:///v1/" + id,
                                     "//assets.orvane.app/v1/" + id,
                                     " " + origin + "/v1/" + id}) {
        expectRow({.arguments = {"asset", "get", asset},
                   .err = "Error: asset must be a UUID or canonical assets.orvane.app URL.\nUsage: orvane-cli "
                          "<subcommand>\n  See 'orvane-cli --help' for more information.\n",
                   .status = 64});
    }
}

TEST_F(AssetDownloads, AreNamedForWhatTheyHold) {
    const std::pair<std::string, const char*> images[] = {
        {"\x89PNG", "png"},
        {"\x89PN", "bin"},
        {"\xFF\xD8\xFF", "jpg"},
        {"\xFF\xD8", "bin"},
        {"GIF8", "gif"},
        {"GIF7", "bin"},
        {std::string("RIFF\0\0\0\0WEBPx", 13), "webp"},
        {std::string("RIFF\0\0\0\0WEBP", 12), "webp"},
        {std::string("RIFF\0\0\0\0WEB", 11), "bin"},
        {std::string("RIFF\0\0\0\0WAVE", 12), "bin"},
        {std::string("RIFX\0\0\0\0WEBP", 12), "bin"},
        {"RIFF", "bin"},
        {"", "bin"},
        {std::string("\0\n\r\n\xFF", 5), "bin"},
    };
    for (const auto& [bytes, extension] : images) {
        expectRow(downloads(id, bytes, extension));
        EXPECT_EQ(contentOf(cache + "/" + lowerId + "." + extension), bytes);
    }
}

TEST_F(AssetDownloads, ReplaceWhatIsThereWhole) {
    for (const mode_t mask : {mode_t{0}, mode_t{077}, mode_t{0777}}) {
        fs::remove_all(cache);
        ::umask(mask);
        expectRow(downloads(id));
        ::umask(0);
        EXPECT_EQ(modeOf(cache), S_IFDIR | 0700U) << mask;
        EXPECT_EQ(modeOf(target), S_IFREG | 0600U) << mask;
    }
    const std::string large = png + std::string(3'000'000, '\n');
    fs::permissions(target, fs::perms::all);
    fs::permissions(cache, fs::perms::all);
    const std::ifstream before(target);
    expectRow(downloads(id, large));
    EXPECT_EQ(modeOf(cache), S_IFDIR | 0700U);
    EXPECT_EQ(modeOf(target), S_IFREG | 0600U);
    EXPECT_TRUE(contentOf(target) == large);
    std::ostringstream held;
    held << before.rdbuf();
    EXPECT_EQ(held.str(), png) << "a reader of the old file keeps it";
    EXPECT_EQ(cached().size(), 1U);
}

TEST_F(AssetDownloads, FollowNoLinks) {
    const std::string elsewhere = directory + "/elsewhere";
    fs::create_directory(elsewhere);
    const std::string noDirectory = "Could not use " + cache + ": it is a link or a file, not a directory";
    fs::create_symlink(elsewhere, cache);
    expectFailedDownload(noDirectory, directory);
    EXPECT_TRUE(fs::is_empty(elsewhere));
    fs::remove(cache);
    fs::create_symlink("nowhere", cache);
    expectFailedDownload(noDirectory, directory);
    fs::remove(cache);
    file("orvane-assets", "");
    expectFailedDownload(noDirectory, directory);
    fs::remove(cache);

    fs::create_directory(cache);
    const std::string victim = file("victim", "old");
    fs::create_symlink(victim, target);
    expectRow(downloads(id));
    EXPECT_EQ(contentOf(victim), "old");
    EXPECT_EQ(modeOf(target), S_IFREG | 0600U);
    if (::chown(cache.c_str(), 1, 1) == 0) { // Only the superuser can give a directory away.
        expectFailedDownload("Could not use " + cache + ": it belongs to another user", directory);
    }
}

TEST_F(AssetDownloads, SayWhatIsWrongAndLeaveNothing) {
    fs::create_directories(target + "/x");
    expectFailedDownload("Could not write " + target + ": Is a directory", directory);
    EXPECT_EQ(cached().size(), 1U);
    fs::remove_all(cache);
    expectFailedDownload("Could not create /proc/none: No such file or directory", "/proc/none");
    const std::string name = file("file", "");
    expectFailedDownload("Could not create " + name + "/orvane-assets: Not a directory", name);

    CommandRow limited = downloads(id, std::string(100'000, 'x'), "bin");
    limited.setting.binary = "/bin/sh";
    limited.arguments = {"-c", "ulimit -f 1; exec \"$0\" asset get " + id, ORVANE_CLI_BINARY};
    limited.out = "";
    limited.err = "Error: Could not write " + cache + "/" + lowerId + ".bin: File too large\n";
    limited.status = 1;
    expectRow(limited);
    EXPECT_TRUE(cached().empty());
}

TEST_F(AssetDownloads, GoWhereTheSystemHasItsTemporaryFiles) {
    CommandRow missing = downloads(id);
    missing.setting.environment["TMPDIR"] = directory + "/a//b/";
    missing.out = directory + "/a//b/orvane-assets/" + lowerId + ".png\n";
    expectRow(missing);
    EXPECT_EQ(modeOf(directory + "/a"), S_IFDIR | 0700U);
    CommandRow relative = downloads(id);
    relative.setting.directory = directory;
    relative.setting.environment["TMPDIR"] = "c";
    relative.out = directory + "/c/orvane-assets/" + lowerId + ".png\n";
    expectRow(relative);
    EXPECT_EQ(contentOf(directory + "/c/orvane-assets/" + lowerId + ".png"), png);
}

class AssetUploads : public TemporaryFiles {
protected:
    /// A run that sends `name` in `directory` as `sent`, both in JSON's form, and prints the answer's text.
    CommandRow uploads(const std::string& path, const std::string& base64, const std::string& name,
                       Location where = Location::current()) const {
        return row({"asset", "upload", id, path},
                   "POST /api/assets\n{\"contextId\":\"" + id + "\",\"data\":\"" + base64 +
                       "\",\"originalFilename\":\"" + name + "\"}",
                   R"({"markdown":"![a]\n\t<c>\u001b[m","id":1})", "![a]\n\t<c>\x1B[m\n", where);
    }
};

TEST_F(AssetUploads, SendTheFileInBase64) {
    const std::pair<std::string, const char*> files[] = {
        {"", ""},
        {std::string(1, '\0'), "AA=="},
        {"\xFF\xFE", "//4="},
        {"\xFB\xEF\xBE", "++++"},
        {"abcd", "YWJjZA=="},
        {"Many hands", "TWFueSBoYW5kcw=="},
        {"\n\r\n\x1A \x7F", "Cg0KGiB/"},
    };
    for (const auto& [bytes, base64] : files) {
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
    expectRow(uploads(path, "eA==", "�\\\"~"));
    CommandRow here = uploads("~", "eA==", "~");
    here.setting.directory = directory;
    file("~", "x");
    expectRow(here);
    expectRow(onTerminal({.arguments = {"asset", "upload", id, path},
                          .answers = {answer(R"({"markdown":"a\nb\u001b"})")},
                          .requests = uploads(path, "eA==", "�\\\"~").requests,
                          .out = "a\nb^[\n"}));
}

TEST_F(AssetUploads, FailOfTheFileOrTheAnswer) {
    const std::string upload = "asset upload " + id + " ";
    expectRefused("asset upload x /none", "context-id must be a UUID.");
    expectMissing("asset upload " + id, "<file>");
    expectFailed(upload + "none/", {}, "Could not read none/: No such file or directory");
    expectFailed(upload + directory, {}, "Could not read " + directory + ": Is a directory");
    const std::string image = file("x", "x");
    for (const char* body : {"{}", "[]", "\"x\"", R"({"markdown":1})", R"({"markdown":null})"}) {
        expectFailed(upload + image, {answer(body)}, "Invalid image upload response.");
    }
    expectFailed(upload + image, {answer("")}, "The data is not valid JSON: incomplete JSON.");
}

} // namespace
