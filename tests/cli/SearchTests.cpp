#include <gtest/gtest.h>

#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string id = "7F1B103C-df15-42b0-aab4-77d26415479c";

CommandRow searchRow(std::vector<std::string> arguments, const std::string& query) {
    arguments.insert(arguments.begin(), "search");
    return {.arguments = std::move(arguments),
            .answers = {answer("{ \"results\": [] }\n")},
            .requests = {"GET /api/contexts/search?" + query},
            .out = "{ \"results\": [] }\n\n"};
}

TEST(Search, SendsWhatIsGiven) {
    expectRows({
        searchRow({"a b"}, "q=a%20b&limit=10"),
        searchRow({""}, "q=&limit=10"),
        searchRow({"--", "-x"}, "q=-x&limit=10"),
        searchRow({"ü+&=#%?\"<>[]{}|\\^`-._~!$'()*,;:@/", "--limit", "500"},
                  "q=%C3%BC%2B%26%3D%23%25%3F%22%3C%3E%5B%5D%7B%7D%7C%5C%5E%60-._~!$'()*,;:@/&limit=500"),
        searchRow({"--literal", "--parent-id", id, "--owner=me", "q", "--type", "codex_chat", "--limit", "1"},
                  "q=q&limit=1&type=codex_chat&owner=me&parentId=" + id + "&literal=true"),
    });
    expectServiceRefusal({"search", "x"});
}

TEST(Search, ChecksItsInputInOrder) {
    const std::string usage = "orvane-cli search <query> [--type <type>] [--owner <owner>] [--limit <limit>] "
                              "[--parent-id <parent-id>] [--literal]";
    expectRefused({"search", "x", "--limit", "0", "--parent-id", "y"}, "Limit must be greater than 0.", usage);
    expectRefused({"search", "x", "--limit=-5"}, "Limit must be greater than 0.", usage);
    expectRefused({"search", "x", "--limit", "501", "--parent-id", "y"}, "Limit must be 500 or less.", usage);
    expectRefused({"search", "x", "--limit", "99999999999"}, "Limit must be 500 or less.", usage);
    for (const char* notUUID : {"",
                                "{"
                                "7f1b103c-df15-42b0-aab4-77d26415479c}",
                                "7f1b103cdf1542b0aab477d26415479c", "7f1b103c-df15-42b0-aab4-77d26415479g",
                                "7f1b103c-df15-42b0-aab4-77d26415479c "}) {
        expectRefused({"search", "x", "--parent-id", notUUID}, "parent-id must be a UUID.", usage);
    }
}

} // namespace
