#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

class ProfileFiles : public TemporaryFiles {};

TEST(Profile, SendsWhatIsGiven) {
    const std::string path = "POST /api/profile/";
    expectRows({
        requestRow("profile", "GET /api/profile"),
        requestRow("profile get", "GET /api/profile"),
        requestRow({"profile", "--section", "no such"}, "GET /api/profile?section=no%20such"),
        requestRow({"profile", "get", "--section", ""}, "GET /api/profile?section="),
        requestRow({"profile", "edit-field", "--value", "a\"b", "--field", "any"},
                   path + "edit-field\n" + R"({"field":"any","value":"a\"b"})"),
        requestRow({"profile", "edit-text", "--section", "s", "--content", "a\n\n"},
                   path + "edit-text\n" + R"({"section":"s","content":"a\n\n"})"),
        requestRow({"profile", "edit-text", "--section", "s", "--content", ""},
                   path + "edit-text\n" + R"({"section":"s","content":""})"),
        requestRow("profile remove-card --section s --index=-9223372036854775808",
                   path + "remove-card\n" + R"({"section":"s","index":-9223372036854775808})"),
    });
}

TEST(Profile, TakesCardsAsObjectsOfTexts) {
    const Words add = "profile add-card --section projects --fields";
    const Words update = "profile update-card --section s --index 3 --updates";
    const std::string added = std::string("POST /api/profile/add-card\n") + R"({"section":"projects","card":)";
    const std::string updated =
        std::string("POST /api/profile/update-card\n") + R"({"section":"s","index":3,"updates":)";
    expectRows({
        requestRow(with(add, "{}"), added + "{}}"),
        requestRow(with(add, {" { \"a\" :\"1.0\",\n\"b\":\"\\u00fc\\/\\n\" } "}), added + R"({"a":"1.0","b":"ü/\n"}})"),
        requestRow(with(add, {R"({"a":1,"a":"x"})"}), added + R"({"a":"x"}})"),
        requestRow(with(update, {"\xEF\xBB\xBF{\"description\":\"\"}"}), updated + R"({"description":""}})"),
    });
    for (const char* json :
         {"", "[]", "null", "\"text\"", "{", "{} x", "{'a':'b'}", R"({"a":"b",})", R"({"year":2024})",
          R"({"a":"b","c":true})", R"({"a":null})", R"({"a":{}})", R"({"a":["b"]})", R"({"a":"\ud800"})"}) {
        expectFailed(with(add, {json}), {}, "--fields must be a valid JSON object with string values.");
    }
    expectFailed(with(update, {R"({"a":1})"}), {}, "--updates must be a valid JSON object with string values.");
}

TEST(Profile, ChecksItsInput) {
    const Words editText = "profile edit-text --section s";
    expectRefused(editText, "Provide either --content or --content-file.");
    expectRefused(with(editText, {"--content", "", "--content-file", "/none"}),
                  "Cannot use both --content and --content-file.");
    expectRefused("profile edit", "Unexpected argument 'edit'");
}

TEST_F(ProfileFiles, GiveTheTextOfASection) {
    const Words edit = "profile edit-text --section s --content-file";
    const auto fileRow = [&](const std::string& path, const std::string& content,
                             Location where = Location::current()) {
        return requestRow(with(edit, {path}),
                          "POST /api/profile/edit-text\n{\"section\":\"s\",\"content\":\"" + content + "\"}", where);
    };
    CommandRow home = fileRow("~/home", "ü");
    file("home", "ü");
    home.setting.environment["HOME"] = directory;
    expectRows({home, fileRow(file("empty", ""), ""), fileRow(file("two", "a\n\n"), R"(a\n)")});
    expectFailed(with(edit, "~/none"), {}, "File not found: ~/none");
    expectFailed(with(edit, {file("bytes", "a\xFF")}), {}, "Could not read file: " + directory + "/bytes");
}

} // namespace
