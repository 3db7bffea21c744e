#include "LibraryFixture.h"

using namespace testsupport;

namespace {

TEST(Profile, SendsWhatIsGiven) {
    const std::string path = "POST /api/profile/";
    expectRequests({
        requestRow({"profile"}, "GET /api/profile"),
        requestRow({"profile", "get"}, "GET /api/profile"),
        requestRow({"profile", "--section", "no such"}, "GET /api/profile?section=no%20such"),
        requestRow({"profile", "get", "--section", ""}, "GET /api/profile?section="),
        requestRow({"profile", "edit-field", "--value", "a\"b", "--field", "any"},
                   path + "edit-field\n" + R"({"field":"any","value":"a\"b"})"),
        requestRow({"profile", "edit-text", "--section", "s", "--content", "a\n\n"},
                   path + "edit-text\n" + R"({"section":"s","content":"a\n\n"})"),
        requestRow({"profile", "edit-text", "--section", "s", "--content", ""},
                   path + "edit-text\n" + R"({"section":"s","content":""})"),
        requestRow({"profile", "remove-card", "--section", "s", "--index=-9223372036854775808"},
                   path + "remove-card\n" + R"({"section":"s","index":-9223372036854775808})"),
    });
}

TEST(Profile, TakesCardsAsObjectsOfTexts) {
    const auto add = [](const std::string& fields) {
        return std::vector<std::string>{"profile", "add-card", "--section", "projects", "--fields", fields};
    };
    const auto update = [](const std::string& updates) {
        return std::vector<std::string>{"profile", "update-card", "--section", "s",
                                        "--index", "3",           "--updates", updates};
    };
    const auto added = [](const std::string& card) {
        return "POST /api/profile/add-card\n{\"section\":\"projects\",\"card\":" + card + "}";
    };
    const auto updated = [](const std::string& card) {
        return "POST /api/profile/update-card\n{\"section\":\"s\",\"index\":3,\"updates\":" + card + "}";
    };
    expectRequests({
        requestRow(add("{}"), added("{}")),
        requestRow(add(" { \"a\" :\"1.0\",\n\"b\":\"\\u00fc\\/\\n\" } "), added(R"({"a":"1.0","b":"ü/\n"})")),
        requestRow(add(R"({"a":1,"a":"x"})"), added(R"({"a":"x"})")),
        requestRow(update("\xEF\xBB\xBF{\"description\":\"\"}"), updated(R"({"description":""})")),
    });
    for (const char* json :
         {"", "[]", "null", "\"text\"", "{", "{} x", "{'a':'b'}", R"({"a":"b",})", R"({"year":2024})",
          R"({"a":"b","c":true})", R"({"a":null})", R"({"a":{}})", R"({"a":["b"]})", R"({"a":"\ud800"})"}) {
        expectFailed(add(json), {}, "--fields must be a valid JSON object with string values.");
        expectFailed(update(json), {}, "--updates must be a valid JSON object with string values.");
    }
}

TEST(Profile, ChecksItsInput) {
    const std::string editText = "orvane-cli profile edit-text --section <section> [--content <content>] "
                                 "[--content-file <content-file>]\n";
    const std::string neither = "Provide either --content or --content-file.";
    expectRefused({"profile", "edit-text", "--section", "s"}, neither, editText);
    expectRefused({"profile", "edit-text", "--section", "s", "--content", "", "--content-file", "/none"},
                  "Cannot use both --content and --content-file.", editText);
    expectMissing({"profile", "add-card", "--section", "s"}, "--fields <fields>",
                  R"(Card fields as a JSON object, e.g. '{"name":"Alice","shortDescription":"Friend"}'.)",
                  "--section <section> --fields <fields>");
    expectMissing({"profile", "update-card", "--section", "s", "--index", "0"}, "--updates <updates>",
                  "Fields to update as a JSON object, e.g. '{\"description\":\"New description\"}'.",
                  "--section <section> --index <index> --updates <updates>");
    expectMissing({"profile", "remove-card", "--section", "s"}, "--index <index>",
                  "0-based index of the card to remove.", "--section <section> --index <index>");
    expectMissing({"profile", "edit-field", "--field", "f"}, "--value <value>", "The new value for the field.",
                  "--field <field> --value <value>");
    expectRefused({"profile", "edit"}, "Unexpected argument 'edit'", "orvane-cli profile get [--section <section>]\n");
}

TEST_F(LibraryFiles, GiveTheTextOfAProfileSection) {
    const auto edit = [](const std::string& path) {
        return std::vector<std::string>{"profile", "edit-text", "--section", "s", "--content-file", path};
    };
    const auto row = [&](const std::string& path, const std::string& content) {
        return requestRow(edit(path),
                          "POST /api/profile/edit-text\n{\"section\":\"s\",\"content\":\"" + content + "\"}");
    };
    CommandRow home = row("~/home", "ü");
    file("home", "ü");
    home.setting.environment["HOME"] = directory;
    expectRows({home, row(file("empty", ""), ""), row(file("two", "a\n\n"), R"(a\n)")});
    expectFailed(edit("~/none"), {}, "File not found: ~/none");
    expectFailed(edit(file("bytes", "a\xFF")), {}, "Could not read file: " + directory + "/bytes");
}

} // namespace
