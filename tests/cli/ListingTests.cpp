#include <gmock/gmock.h>

#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string emptyTable = "kind\towner\tupdated\tid\tname\n";

/// A run whose answer is an empty page: what counts is the request.
CommandRow emptyPageRow(const Words& arguments, const std::string& query, Location where = Location::current()) {
    CommandRow whole = row(arguments, "GET /api/nodes?" + query, R"({"nodes":[],"offset":3})", emptyTable, where);
    whole.err = "orvane " + arguments.front() + ": showing 0-3\n";
    return whole;
}

/// An answer and the table and summary that become of it.
Reply page(std::string body, std::string out, const std::string& summary, Location where = Location::current()) {
    return Reply(std::move(body), std::move(out), "orvane ls: showing " + summary + "\n", where);
}

void expectPages(const std::vector<Reply>& replies, const Output& out = {}) {
    expectReplies("ls --offset 40", "GET /api/nodes?limit=100&offset=40&cliVerb=ls", replies, out);
}

TEST(Listing, SendsWhatIsGiven) {
    const Words filters("--type skill --since 2024-01-01 --until u&u --owner team --name Ä --limit 500 --offset 7 "
                        "--initiated automation");
    const Words email = "--sender s --recipient r --to t --cc c --bcc b --subject re:";
    const std::string filterQuery =
        "kind=skill&since=2024-01-01&until=u%26u&owner=team&name=%C3%84&initiated=automation";
    const std::string emailQuery = "sender=s&recipient=r&to=t&cc=c&bcc=b&subject=re:";
    expectRows({
        emptyPageRow("ls", "limit=100&offset=0&cliVerb=ls"),
        emptyPageRow("ls grp_anything -t --limit=1", "limit=1&offset=0&parentId=grp_anything&sort=updated&cliVerb=ls"),
        emptyPageRow(with(with("ls --sort-by-time " + id, email), filters), "limit=500&offset=7&parentId=" + id + "&" +
                                                                                filterQuery + "&sort=updated&" +
                                                                                emailQuery + "&cliVerb=ls"),
        emptyPageRow("find " + id + " --limit=1", "recursive=true&parentId=" + id + "&limit=1&offset=0&cliVerb=find"),
        emptyPageRow("find " + id, "recursive=true&parentId=" + id + "&limit=100&offset=0&cliVerb=find"),
        emptyPageRow(with(with(with("find", filters), {id}), email), "recursive=true&parentId=" + id +
                                                                         "&limit=500&offset=7&" + filterQuery + "&" +
                                                                         emailQuery + "&cliVerb=find"),
        requestRow("ls --json", "GET /api/nodes?limit=100&offset=0&cliVerb=ls"),
        requestRow("find " + id + " --json",
                   "GET /api/nodes?recursive=true&parentId=" + id + "&limit=100&offset=0&cliVerb=find"),
    });
}

TEST(Listing, ChecksItsInputInOrder) {
    const std::string lsParent = "parent must be a UUID or a grp_ group id.";
    const std::string limit = "limit must be between 1 and 500.";
    expectRefused("ls not-a-uuid --limit 0", lsParent);
    expectRefused("ls --limt 3", lsParent);
    expectRefused("ls --limit 501 --offset=-1", limit);
    expectRefused("ls --limit 0", limit);
    expectRefused("ls --offset=-1", "offset must be >= 0.");
    expectRefused("find grp_x --limit 0", "parent must be a UUID.");
    expectRefused("find " + id + " --limit 501", limit);
    expectRefused("find " + id + " --offset=-1", "offset must be >= 0.");
}

TEST(Listing, LaysOutTheColumnsThatThePageNeeds) {
    const std::string start(78, 'n');
    expectPages({
        page(R"({"nodes":[{"kind":"orvane_context","id":"1","name":" Caf\u0065\u0301\tau lait ",
                           "updatedAt":"Mar 7, 2024, 2:05 PM PST","sourceOwner":{"isCurrentUser":true}},
                          {"kind":"x","id":"2","name":")" +
                 start + R"( \nmmmmmmmmm","originalUpdatedAt":"",
                           "updatedAt":"Mar 7, 2024, 2:05 PM PST","sourceOwner":{"displayName":"Ann"}},
                          {"sourceOwner":{"email":"","displayName":"B"},"kind":7,"name":"春","id":"3 "}]})",
             "kind\t\towner\tupdated\t\tid\tname\n"
             "orvane_context\tme\tMar  7  2024\t1\tCafe\xCC\x81 au lait\n"
             "x\t\tAnn\t\t\t2\t" +
                 start +
                 "…\n"
                 "\t\t\t\t\t3\t春\n",
             "41-43"),
        page(R"({"nodes":[{"kind":"12345678","initiated":"","threadId":"t1","id":"1","sharedWith":[]},
                          {"kind":"k","executionMode":"cloud","sharedWith":[{"audience":"user"}]}]})",
             "kind\t\towner\tshared\tinitiated\texecution\tupdated\tid\tthread\tname\n"
             "12345678\tme\t\t\t\t\t\t\t1\tt1\t\n"
             "k\t\tme\tsomeone\t\t\tcloud\t\t\t\t\t\n",
             "41-42"),
        page(R"({"nodes":[{"executionMode":"cloud"}]})",
             "kind\towner\tinitiated\texecution\tupdated\tid\tname\n\tme\t\t\tcloud\t\t\t\t\n", "41-41"),
    });
    expectPages({page(R"({"nodes":[{"kind":"k","id":"1","name":"n","sourceOwner":{"email":"e"}}]})",
                      "\x1B[1mkind\x1B[0m\t\x1B[1mowner\x1B[0m\t\x1B[1mupdated\x1B[0m\t\x1B[1mid\x1B[0m\t"
                      "\x1B[1mname\x1B[0m\n\x1B[2mk\x1B[0m\t\x1B[33me\x1B[0m\t\x1B[2m\x1B[0m\t"
                      "\x1B[36m1\x1B[0m\t\x1B[1mn\x1B[0m\n",
                      "41-41")},
                Output::terminal());
}

TEST(Listing, SummarisesThePage) {
    const std::string deep = "[" + std::string(600, '[') + std::string(600, ']') + "]";
    expectPages({
        page(R"({"nodes":[]})", emptyTable, "0-40"),
        page(R"({"nodes":[],"total":0,"offset":0})", emptyTable, "0-0 of 0"),
        page(R"({"nodes":[],"returned":5,"offset":10,"total":99,"nextOffset":15})", emptyTable,
             "11-15 of 99; more available with --offset 15"),
        page(R"({"nodes":[],"returned":2.0,"offset":"1","nextOffset":15,"hasMore":false,"total":1.5})", emptyTable,
             "41-42"),
        page(R"({"nodes":[],"hasMore":true,"returned":true})", emptyTable, "0-40"),
        page(R"({"nodes":[],"returned":9223372036854775807,"offset":9223372036854775807})", emptyTable,
             "-9223372036854775808--2"),
        Reply(R"({"nodes":[{},1]})", "{\"nodes\":[{},1]}\n"),
        Reply(R"({"node":[]})", "{\"node\":[]}\n"),
        Reply(deep, deep + "\n"),
        Reply(R"({"nodes":[],"x":"\ud800"})", "{\"nodes\":[],\"x\":\"\\ud800\"}\n"),
    });
}

TEST(Listing, ShowsWithWhomANodeIsShared) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {R"({"audience":"user","displayName":"Ann"})", "Ann"},
        {R"({"audience":"user","email":"a@b.c"})", "a@b.c"},
        {R"({"audience":"user"},{"audience":"user"},{"audience":"user"})", "3 people"},
        {R"({"audience":"user"},{"teamName":"Design"},{"audience":"user"},{"audience":"user"})", "Design, 3 people"},
        {R"({"teamName":"Engineering Platform"},{"teamName":"Design"})", "Engineering Platform +1"},
        {R"({"teamName":"A team with a name that is long"},{"audience":"user"},{"audience":"user"})",
         "A team with a name that is long +2"},
        {R"({"audience":"admins","teamName":"Ops"},{"audience":"all"})", "Ops admins, team"},
        {R"({"teamName":"Engineering"},{"teamName":"Designs"})", "Engineering, Designs"},
    };
    for (const auto& [grants, label] : cases) {
        ScriptedService service({answer(R"({"nodes":[{"sharedWith":[)" + grants + "]}]}")});
        EXPECT_THAT(runTool({"ls"}).out, testing::HasSubstr("\tme\t" + label + "\t"));
    }
}

} // namespace
