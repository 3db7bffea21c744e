#include "support/CommandRow.h"

using namespace testsupport;

namespace {

TEST(Search, SendsWhatIsGiven) {
    const std::string path = "GET /api/contexts/search?";
    expectRows({
        requestRow({"search", "a b"}, path + "q=a%20b&limit=10"),
        requestRow({"search", ""}, path + "q=&limit=10"),
        requestRow("search -- -x", path + "q=-x&limit=10"),
        requestRow({"search", "a\xFF\xC3"}, path + "q=a%EF%BF%BD%EF%BF%BD&limit=10"),
        requestRow({"search", "ü+&=#%?\"<>[]{}|\\^`-._~!$'()*,;:@/", "--limit", "500"},
                   path + "q=%C3%BC%2B%26%3D%23%25%3F%22%3C%3E%5B%5D%7B%7D%7C%5C%5E%60-._~!$'()*,;:@/&limit=500"),
        requestRow("search --literal --parent-id " + id + " --owner=me q --type codex_chat --limit=1",
                   path + "q=q&limit=1&type=codex_chat&owner=me&parentId=" + id + "&literal=true"),
    });
}

TEST(Search, ChecksItsInputInOrder) {
    const std::string tooSmall = "Limit must be greater than 0.";
    const std::string tooLarge = "Limit must be 500 or less.";
    expectRefused("search x --limit 0 --parent-id y", tooSmall);
    expectRefused("search x --limit=-5", tooSmall);
    expectRefused("search x --limit 501 --parent-id y", tooLarge);
    expectRefused("search x --limit 99999999999", tooLarge);
    expectRefused("search x --parent-id grp_x", "parent-id must be a UUID.");
}

} // namespace
