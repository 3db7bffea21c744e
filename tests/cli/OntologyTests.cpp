#include "support/CommandRow.h"
#include "support/TemporaryFiles.h"

using namespace testsupport;

namespace {

const std::string prefix = "/api/ontology/v2/";

/// A run of `ontology <words>` that makes `request`, whose path begins behind the family's prefix, and prints the
/// answer as it came.
CommandRow asks(const std::string& words, const std::string& method, const std::string& path,
                const std::string& body = {}, Location where = Location::current()) {
    return requestRow("ontology " + words, method + " " + prefix + path + (body.empty() ? "" : "\n" + body), where);
}

TEST(Ontology, AsksInLowerCase) {
    expectRows({
        asks("spaces", "GET", "spaces"),
        asks("space get " + id, "GET", "spaces/" + lowerId),
        asks("space create N", "POST", "spaces", R"({"name":"N"})"),
        asks("space create N --description d --emoji e", "POST", "spaces",
             R"({"name":"N","emoji":"e","description":"d"})"),
        asks("space update " + id + " --clear-description --name N --emoji e", "PATCH", "spaces/" + lowerId,
             R"({"name":"N","emoji":"e","description":null})"),
        asks("types " + id, "GET", "spaces/" + lowerId + "/types"),
        asks("type get " + id, "GET", "types/" + lowerId),
        asks("type create " + id + " N --inherits-from-type-id " + other, "POST", "spaces/" + lowerId + "/types",
             R"({"name":"N","inheritsFromTypeId":")" + lowerOther + "\"}"),
        asks("type update " + id + " --clear-inheritance --display-field-id " + other + " --clear-emoji", "PATCH",
             "types/" + lowerId, R"({"emoji":null,"inheritsFromTypeId":null,"displayFieldId":")" + lowerOther + "\"}"),
        asks("type update " + id + " --clear-display-field --inherits-from-type-id " + other, "PATCH",
             "types/" + lowerId, R"({"inheritsFromTypeId":")" + lowerOther + R"(","displayFieldId":null})"),
        asks("primitives " + id, "GET", "spaces/" + lowerId + "/primitive-types"),
        asks("fields " + id, "GET", "types/" + lowerId + "/fields"),
        asks("field get " + id, "GET", "fields/" + lowerId),
        asks("enums " + id, "GET", "spaces/" + lowerId + "/enum-types"),
        asks("enum get " + id, "GET", "enum-types/" + lowerId),
        asks("enum create " + id + " N --emoji e", "POST", "spaces/" + lowerId + "/enum-types",
             R"({"name":"N","emoji":"e"})"),
        asks("enum update " + id + " --description d", "PATCH", "enum-types/" + lowerId, R"({"description":"d"})"),
        asks("enum-cases " + id, "GET", "enum-types/" + lowerId + "/cases"),
        asks("enum-case get " + id, "GET", "enum-cases/" + lowerId),
        asks("enum-case create " + id + " N", "POST", "enum-types/" + lowerId + "/cases",
             R"({"name":"N","sortIndex":0})"),
        asks("enum-case create " + id + " N --sort-index 7 --description d", "POST", "enum-types/" + lowerId + "/cases",
             R"({"name":"N","description":"d","sortIndex":7})"),
        asks("enum-case update " + id + " --sort-index 0", "PATCH", "enum-cases/" + lowerId, R"({"sortIndex":0})"),
        asks("objects --space-id " + id, "GET", "spaces/" + lowerId + "/objects?limit=50"),
        asks("objects --limit 200 --page-token a=b --type-id " + id, "GET",
             "types/" + lowerId + "/objects?limit=200&pageToken=a%3Db"),
        asks("object get " + id, "GET", "objects/" + lowerId),
        asks("object create " + id + " " + other, "POST", "spaces/" + lowerId + "/objects",
             R"({"typeId":")" + lowerOther + "\"}"),
        asks("object update " + id + " --type-id " + other, "PATCH", "objects/" + lowerId,
             R"({"typeId":")" + lowerOther + "\"}"),
        asks("assertions " + id + " --limit 1", "GET", "objects/" + lowerId + "/assertions?limit=1"),
        asks("assertion get " + id, "GET", "assertions/" + lowerId),
        asks("assertion children " + id, "GET", "assertions/" + lowerId + "/children?limit=50"),
        asks("assertion add-support " + id + " " + other, "POST", "assertions/" + lowerId + "/supports",
             R"({"nodeId":")" + lowerOther + "\"}"),
        asks("assertion remove-support " + id + " " + other, "DELETE",
             "assertions/" + lowerId + "/supports/" + lowerOther),
    });
}

TEST(Ontology, DeletesAndSaysWhat) {
    const std::vector<std::pair<std::string, std::string>> resources{
        {"space", "spaces"},         {"type", "types"},     {"field", "fields"},        {"enum", "enum-types"},
        {"enum-case", "enum-cases"}, {"object", "objects"}, {"assertion", "assertions"}};
    for (const auto& [word, collection] : resources) {
        const std::string said = word == "enum-case" ? "enum case" : word;
        expectRow(row("ontology " + word + " delete " + id, "DELETE " + prefix + collection + "/" + lowerId,
                      R"({"ignored":1})", "Deleted " + said + " " + lowerId + "\n"));
        expectRefusedByRun("ontology " + word + " delete x", "id must be a UUID.");
        expectRefusedByRun("ontology " + word + " get x", "id must be a UUID.");
    }
}

TEST(Ontology, PrintsAnEmptyAnswerNotAtAll) {
    expectRows({
        row("ontology spaces", "GET " + prefix + "spaces", "", ""),
        row("ontology assertion remove-support " + id + " " + other,
            "DELETE " + prefix + "assertions/" + lowerId + "/supports/" + lowerOther, "", ""),
        row("ontology spaces", "GET " + prefix + "spaces", "\n", "\n\n"),
    });
    const std::string large(5'000'000, ' ');
    const ScriptedService service({answer(large)});
    EXPECT_TRUE(runTool({"ontology", "spaces"}).out == large + "\n");
}

TEST(Ontology, ChecksBeforeItRuns) {
    expectRefused("ontology objects", "Provide exactly one of --space-id or --type-id.");
    expectRefused("ontology objects --space-id x --type-id y", "Provide exactly one of --space-id or --type-id.");
    expectRefused("ontology objects --limit 0", "limit must be between 1 and 200.");
    expectRefused("ontology assertions x --limit 201", "limit must be between 1 and 200.");
    expectRefused("ontology assertion children x --limit 0", "limit must be between 1 and 200.");
    expectRefused("ontology field create --from-file /none", "Provide exactly one of --type-id or --parent-field-id.");
    expectRefused("ontology assertion create --object-id x --parent-assertion-id y --from-file /none",
                  "Provide exactly one of --object-id or --parent-assertion-id.");
    expectRefused("ontology type update x --inherits-from-type-id y --clear-inheritance --display-field-id z "
                  "--clear-display-field",
                  "Use either --inherits-from-type-id or --clear-inheritance, not both.");
    expectRefused("ontology type update x --display-field-id y --clear-display-field",
                  "Use either --display-field-id or --clear-display-field, not both.");
}

TEST(Ontology, ChecksInOrderWhileItRuns) {
    const std::string nothing = "Provide at least one property to update.";
    for (const char* word : {"space", "type", "enum", "enum-case"}) {
        expectRefusedByRun("ontology " + std::string(word) + " update " + id, nothing);
        expectRefusedByRun("ontology " + std::string(word) + " update x --emoji e --clear-emoji", "id must be a UUID.");
    }
    expectRefusedByRun("ontology space update " + id + " --emoji e --clear-emoji --description d --clear-description",
                       "Use either --emoji or --clear-emoji, not both.");
    expectRefusedByRun("ontology space update " + id + " --description d --clear-description",
                       "Use either --description or --clear-description, not both.");
    expectRefusedByRun("ontology type update " + id + " --inherits-from-type-id x --display-field-id y",
                       "inherits-from-type-id must be a UUID.");
    expectRefusedByRun("ontology type update " + id + " --display-field-id y", "display-field-id must be a UUID.");
    expectRefusedByRun("ontology type create x N --inherits-from-type-id y", "space-id must be a UUID.");
    expectRefusedByRun("ontology type create " + id + " N --inherits-from-type-id y",
                       "inherits-from-type-id must be a UUID.");
    expectRefusedByRun("ontology types x", "space-id must be a UUID.");
    expectRefusedByRun("ontology fields x", "type-id must be a UUID.");
    expectRefusedByRun("ontology enum create x N", "space-id must be a UUID.");
    expectRefusedByRun("ontology enum-cases x", "enum-id must be a UUID.");
    expectRefusedByRun("ontology enum-case create x N --sort-index=-1", "enum-id must be a UUID.");
    expectRefusedByRun("ontology enum-case create " + id + " N --sort-index=-1", "sort-index must be non-negative.");
    expectRefusedByRun("ontology enum-case update " + id + " --sort-index=-1", "sort-index must be non-negative.");
    expectRefusedByRun("ontology objects --space-id x", "space-id must be a UUID.");
    expectRefusedByRun("ontology objects --type-id x", "type-id must be a UUID.");
    expectRefusedByRun("ontology object create x y", "space-id must be a UUID.");
    expectRefusedByRun("ontology object create " + id + " y", "type-id must be a UUID.");
    expectRefusedByRun("ontology object update x --type-id y", "id must be a UUID.");
    expectRefusedByRun("ontology object update " + id + " --type-id y", "type-id must be a UUID.");
    expectRefusedByRun("ontology assertions x", "object-id must be a UUID.");
    expectRefusedByRun("ontology assertion children x", "assertion-id must be a UUID.");
    expectRefusedByRun("ontology assertion add-support x y", "assertion-id must be a UUID.");
    expectRefusedByRun("ontology assertion remove-support " + id + " y", "node-id must be a UUID.");
}

class OntologyDrafts : public TemporaryFiles {};

TEST_F(OntologyDrafts, LeaveAsTheyWereWritten) {
    const std::string draft = " {\"z\":1e308 , \"a\":[0.1000,12345678901234567890123,0.12345678901234567],\n"
                              "\t\"\\u00e9\\/\":\"\\ud83c\\udf31\",\"a\":{}}\r\n";
    const std::string path = file("draft", draft);
    const std::string parents = " --from-file " + path;
    expectRows({
        asks("field create --type-id " + id + parents, "POST", "types/" + lowerId + "/fields", draft),
        asks("field create --parent-field-id " + id + parents, "POST", "fields/" + lowerId + "/fields", draft),
        asks("field update " + id + parents, "PATCH", "fields/" + lowerId, draft),
        asks("assertion create --object-id " + id + parents, "POST", "objects/" + lowerId + "/assertions", draft),
        asks("assertion create --parent-assertion-id " + id + parents, "POST", "assertions/" + lowerId + "/children",
             draft),
        asks("assertion update " + id + parents, "POST", "assertions/" + lowerId + "/replace", draft),
    });
    CommandRow home = asks("field update " + id + " --from-file ~/draft", "PATCH", "fields/" + lowerId, draft);
    home.setting.environment["HOME"] = directory;
    expectRow(home);
    const std::string update = "field update " + id + " --from-file -";
    expectRow(withInput(asks(update, "PATCH", "fields/" + lowerId, draft), Input::pipe("\xEF\xBB\xBF" + draft)));
}

TEST_F(OntologyDrafts, AreOneObjectOrRefused) {
    const std::string unlike = " must contain one JSON object.";
    for (const char* bytes : {"", " ", "[]", "null", "{", "{} {}", "{} x", "{'a':1}", "{\"a\":\"\xFF\"}", "\xFF"}) {
        const std::string path = file("draft", bytes);
        expectFailed("ontology field update " + id + " --from-file " + path, {}, "Field changes" + unlike);
    }
    const std::string list = file("list", "[]");
    expectFailed("ontology field create --type-id " + id + " --from-file " + list, {}, "Field draft" + unlike);
    expectFailed("ontology assertion create --object-id " + id + " --from-file " + list, {},
                 "Assertion draft" + unlike);
    expectFailed("ontology assertion update " + id + " --from-file " + list, {},
                 "Replacement Assertion draft" + unlike);
    expectFailed("ontology field update " + id + " --from-file " + directory, {}, "File not found: " + directory);
    expectRefusedByRun("ontology field update " + id + " --from-file " + file("empty", " { } "),
                       "Provide at least one property to update.");
    // A Field's draft is read before its parent is looked at, an Assertion's behind it.
    expectFailed("ontology field create --type-id x --from-file ~/none", {}, "File not found: ~/none");
    expectRefusedByRun("ontology field create --type-id x --from-file " + file("some", "{}"),
                       "type-id must be a UUID.");
    expectRefusedByRun("ontology field create --parent-field-id x --from-file " + file("some", "{}"),
                       "parent-field-id must be a UUID.");
    expectRefusedByRun("ontology field update x --from-file /none", "id must be a UUID.");
    expectRefusedByRun("ontology assertion create --object-id x --from-file /none", "object-id must be a UUID.");
    expectRefusedByRun("ontology assertion create --parent-assertion-id x --from-file /none",
                       "parent-assertion-id must be a UUID.");
    expectRefusedByRun("ontology assertion update x --from-file /none", "id must be a UUID.");
}

} // namespace
