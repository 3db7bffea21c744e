#include "support/CommandRow.h"

using namespace testsupport;

namespace {

CommandRow queryRow(const Words& options, const std::string& query, Location where = Location::current()) {
    return row(with("grep", options), "GET /api/nodes/search?" + query + "&cliVerb=grep", R"({"results":[]})", "",
               where);
}

void expectResults(const std::vector<Reply>& replies, const Output& out = {}) {
    expectReplies("grep x", "GET /api/nodes/search?q=x&limit=10&cliVerb=grep", replies, out);
}

TEST(Grep, SendsWhatIsGiven) {
    CommandRow inDirectory = queryRow("x --repo .,../y --repo ~/z", "q=x&limit=10&repos=/usr/lib,/usr/y,/home/me/z");
    inDirectory.setting.directory = "/usr/lib";
    inDirectory.setting.environment["HOME"] = "/home/me";
    expectRows({
        queryRow({"", "--repo", ","}, "q=&limit=10"),
        queryRow("x --repo a,b --repo ,c --limit=1", "q=x&limit=1&repos=a,b,c"),
        inDirectory,
        queryRow(with({"-F", "a b", id},
                      "--type all --since s --until u --limit 500 --sender 1 --recipient 2 --to 3 --cc 4 --bcc 5 "
                      "--subject 6 --page-token t= --owner me --repo h/o/r --initiated agent"),
                 "q=a%20b&limit=500&sender=1&recipient=2&to=3&cc=4&bcc=5&subject=6&pageToken=t%3D&parentId=" + id +
                     "&kind=all&since=s&until=u&owner=me&literal=true&repos=h/o/r&initiated=agent"),
        requestRow("grep x --json", "GET /api/nodes/search?q=x&limit=10&cliVerb=grep"),
    });
}

TEST(Grep, ChecksItsInputInOrder) {
    expectRefused("grep x grp_1 --limit 0", "scope must be a UUID.");
    expectRefused("grep x --limit 0", "limit must be between 1 and 500.");
    expectRefused("grep x " + id + " --limit 501", "limit must be between 1 and 500.");
}

TEST(Grep, ShowsEachResultAsABlock) {
    const std::string hundred(100, 't');
    expectResults({
        Reply(R"({"results":[
                      {"nodeId":"n","title":"T\nt","threadId":"th","sliceId":"s","modality":"chat","body":"one\n\ntwo",
                       "chunks":[{"text":"no"}],
                       "document":{"id":"d","kind":"k","name":"N","sourceOwner":{"email":"e"},"initiated":"human",
                                   "executionMode":"cloud","originalUpdatedAt":"2024-03-07T14:05:06.5Z"}},
                      {"id":"d2","name":"N2","sliceId":"s2","chunks":[{"text":"a"},{},{"text":"b\n"}],
                       "executionMode":"local","sourceOwner":{"email":""},"originalUpdatedAt":"Mar 7, 2024",
                       "updatedAt":"2024-03-07T14:05:06Z"},
                      {"document":{"id":"d3"},"id":"x"}]})",
              "n  k  e  Mar  7  2024  T t\n    threadId: th\n    sliceId: s · modality: chat\n"
              "    initiated: human · executionMode: cloud\n    one\n    \n    two\n\n"
              "d2    N2\n    sliceId: s2 · modality: null\n    executionMode: local\n    a\n    b\n    \n\n"
              "d3    me  \n    \n\n"),
        Reply(R"({"results":[{"title":")" + hundred + R"("},{"title":")" + hundred + R"(x"}]})",
              "    me  " + hundred + "\n    \n\n    me  " + hundred.substr(1) + "…\n    \n\n"),
        Reply(R"({"results":[1]})", "{\"results\":[1]}\n"),
        Reply("{}", "{}\n"),
    });
    expectResults({Reply(R"({"results":[{"id":"i","kind":"k","name":"n"}]})",
                         "\x1B[36mi\x1B[0m  \x1B[2mk\x1B[0m  \x1B[32mme\x1B[0m  \x1B[1mn\x1B[0m\n    \n\n")},
                  Output::terminal());
}

TEST(Grep, PrintsManyResultsOnce) {
    const std::string body(70'000, 'x');
    const std::string result = R"({"id":"i","body":")" + body + "\"}";
    const std::string block = "i    me  \n    " + body + "\n\n";
    expectResults({Reply(R"({"results":[)" + result + "," + result + "]}", block + block)});
}

TEST(Grep, TellsHowToGoOnAndWhereItStopped) {
    const std::string next = "Next page: repeat with --page-token 'a'b' and the same parameters.\n";
    const std::string rest = "; no page token does not prove there are no additional literal matches.\n";
    const std::string bounded = "Search is relevance-bounded";
    expectResults({
        Reply(R"({"results":[]})", ""),
        Reply(R"({"results":[],"exhaustive":true,"candidateLimit":5})", ""),
        Reply(R"({"results":[],"exhaustive":"false","nextPageToken":5})", ""),
        Reply(R"({"results":[],"nextPageToken":"a'b"})", next),
        Reply(R"({"results":[],"exhaustive":false,"candidateLimit":0})", bounded + rest),
        Reply(R"({"results":[],"exhaustive":false})", bounded + rest),
        Reply(R"({"results":[],"nextPageToken":"a'b","exhaustive":false,"candidateLimit":200})",
              next + bounded + " to 200 candidates" + rest),
    });
}

} // namespace
