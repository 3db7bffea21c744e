#include <ctime>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string id = "7f1b103c-df15-42b0-aab4-77d26415479c";
const std::string emptyTable = "kind\towner\tupdated\tid\tname\n";

/// A run whose answer is an empty page: what counts is the request.
CommandRow requestRow(const std::string& verb, std::vector<std::string> arguments, const std::string& query) {
    arguments.insert(arguments.begin(), verb);
    return {.arguments = std::move(arguments),
            .answers = {answer(R"({"nodes":[],"offset":3})")},
            .requests = {"GET /api/nodes?" + query},
            .out = emptyTable,
            .err = "orvane " + verb + ": showing 0-3\n"};
}

CommandRow pageRow(std::string body, std::string out, std::string summary) {
    return {.arguments = {"ls", "--offset", "40"},
            .answers = {answer(std::move(body))},
            .requests = {"GET /api/nodes?limit=100&offset=40&cliVerb=ls"},
            .out = std::move(out),
            .err = summary.empty() ? "" : "orvane ls: showing " + summary + "\n"};
}

TEST(Listing, SendsWhatIsGiven) {
    const std::vector<std::string> filters{"--type",   "skill", "--since",     "2024-01-01", "--until", "x y",
                                           "--owner",  "team",  "--name",      "Ä",          "--limit", "500",
                                           "--offset", "7",     "--initiated", "automation"};
    const std::vector<std::string> email{"--sender", "s", "--recipient", "r", "--to",      "t",
                                         "--cc",     "c", "--bcc",       "b", "--subject", "re:"};
    const std::string filterQuery =
        "kind=skill&since=2024-01-01&until=x%20y&owner=team&name=%C3%84&initiated=automation";
    const std::string emailQuery = "sender=s&recipient=r&to=t&cc=c&bcc=b&subject=re:";
    const auto with = [](std::vector<std::string> arguments, const std::vector<std::string>& more) {
        arguments.insert(arguments.end(), more.begin(), more.end());
        return arguments;
    };
    expectRows({
        requestRow("ls", {}, "limit=100&offset=0&cliVerb=ls"),
        requestRow("ls", {"grp_anything", "-t"}, "limit=100&offset=0&parentId=grp_anything&sort=updated&cliVerb=ls"),
        requestRow("ls", with(with({"--sort-by-time", id}, email), filters),
                   "limit=500&offset=7&parentId=" + id + "&" + filterQuery + "&sort=updated&" + emailQuery +
                       "&cliVerb=ls"),
        requestRow("find", {id}, "recursive=true&parentId=" + id + "&limit=100&offset=0&cliVerb=find"),
        requestRow("find", with(with(filters, {id}), email),
                   "recursive=true&parentId=" + id + "&limit=500&offset=7&" + filterQuery + "&" + emailQuery +
                       "&cliVerb=find"),
    });
    expectServiceRefusal({"ls", "--json"});
    expectServiceRefusal({"find", id});
}

TEST(Listing, ChecksItsInputInOrder) {
    const std::string lsUsage = "orvane-cli ls [<options>] [<parent>]";
    const std::string findUsage = "orvane-cli find [<options>] <parent>";
    const std::string lsParent = "parent must be a UUID or a grp_ group id.";
    const std::string limit = "limit must be between 1 and 500.";
    expectRefused({"ls", "not-a-uuid", "--limit", "0"}, lsParent, lsUsage);
    expectRefused({"ls", "--limt", "3"}, lsParent, lsUsage);
    expectRefused({"ls", "--limit", "501", "--offset=-1"}, limit, lsUsage);
    expectRefused({"ls", "--limit", "0"}, limit, lsUsage);
    expectRefused({"ls", "--offset=-1"}, "offset must be >= 0.", lsUsage);
    expectRefused({"find", "grp_x", "--limit", "0"}, "parent must be a UUID.", findUsage);
    expectRefused({"find", id, "--limit", "501"}, limit, findUsage);
    expectRefused({"find", id, "--offset=-1"}, "offset must be >= 0.", findUsage);
    expectRow({.arguments = {"ls", "--initiated", "me"},
               .err = "Help:  --initiated <initiated>  Filter sessions by who or what initiated them: human, agent, or "
                      "automation. Combine with --type transcript (the default when set) or a conversation --kind such "
                      "as codex_chat; message kinds are reached through their session kind.\n"
                      "Error: The value 'me' is invalid for '--initiated <initiated>'. Please provide one of 'human', "
                      "'agent' or 'automation'.\nUsage: " +
                      lsUsage + "\n  See 'orvane-cli ls --help' for more information.\n",
               .status = 64});
}

TEST(Listing, LaysOutTheColumnsThatThePageNeeds) {
    const std::string longName = std::string(78, 'n') + " \\n" + std::string(9, 'm');
    expectRows({
        pageRow(R"({"nodes":[{"kind":"orvane_context","id":"1","name":" Caf\u0065\u0301\tau lait ",
                              "updatedAt":"Mar 7, 2024, 2:05 PM PST","sourceOwner":{"isCurrentUser":true}},
                             {"kind":"x","id":"2","name":")" +
                    longName + R"(","originalUpdatedAt":"",
                              "updatedAt":"Mar 7, 2024, 2:05 PM PST","sourceOwner":{"displayName":"Ann"}},
                             {"sourceOwner":{"email":"","displayName":"B"},"kind":7,"name":"春"}]})",
                "kind\t\towner\tupdated\t\tid\tname\n"
                "orvane_context\tme\tMar  7  2024\t1\tCafe\xCC\x81 au lait\n"
                "x\t\tAnn\t\t\t2\t" +
                    std::string(78, 'n') +
                    "…\n"
                    "\t\t\t\t\t\t春\n",
                "41-43"),
        pageRow(R"({"nodes":[{"kind":"12345678","initiated":"","threadId":"t1","id":"1","sharedWith":[]},
                             {"kind":"k","executionMode":"cloud","sharedWith":[{"audience":"user"}]}]})",
                "kind\t\towner\tshared\tinitiated\texecution\tupdated\tid\tthread\tname\n"
                "12345678\tme\t\t\t\t\t\t\t1\tt1\t\n"
                "k\t\tme\tsomeone\t\t\tcloud\t\t\t\t\t\n",
                "41-42"),
    });
}

TEST(Listing, SummarisesThePage) {
    expectRows({
        pageRow(R"({"nodes":[]})", emptyTable, "0-40"),
        pageRow(R"({"nodes":[],"total":0,"offset":0})", emptyTable, "0-0 of 0"),
        pageRow(R"({"nodes":[],"returned":5,"offset":10,"total":99,"nextOffset":15})", emptyTable,
                "11-15 of 99; more available with --offset 15"),
        pageRow(R"({"nodes":[],"returned":2.0,"offset":"1","nextOffset":15,"hasMore":false,"total":1.5})", emptyTable,
                "41-42"),
        pageRow(R"({"nodes":[],"hasMore":true,"returned":true})", emptyTable, "0-40"),
        pageRow(R"({"nodes":[],"returned":9223372036854775807,"offset":9223372036854775807})", emptyTable,
                "-9223372036854775808--2"),
        pageRow(R"({"nodes":[{},1]})",
                R"({"nodes":[{},1]})"
                "\n",
                ""),
        pageRow(R"({"node":[]})",
                R"({"node":[]})"
                "\n",
                ""),
        pageRow("[" + std::string(600, '[') + std::string(600, ']') + "]",
                "[" + std::string(600, '[') + std::string(600, ']') + "]\n", ""),
        pageRow(R"({"nodes":[],"x":"\ud800"})",
                R"({"nodes":[],"x":"\ud800"})"
                "\n",
                ""),
    });
    expectRow({.arguments = {"ls", "--json"},
               .answers = {answer("{\"nodes\": [] }")},
               .requests = {"GET /api/nodes?limit=100&offset=0&cliVerb=ls"},
               .out = "{\"nodes\": [] }\n"});
}

TEST(Listing, ColoursCellsOnATerminal) {
    CommandRow row = pageRow(R"({"nodes":[{"kind":"k","id":"1","name":"n","sourceOwner":{"email":"e"}}]})",
                             "\x1B[1mkind\x1B[0m\t\x1B[1mowner\x1B[0m\t\x1B[1mupdated\x1B[0m\t\x1B[1mid\x1B[0m\t"
                             "\x1B[1mname\x1B[0m\n\x1B[2mk\x1B[0m\t\x1B[33me\x1B[0m\t\x1B[2m\x1B[0m\t"
                             "\x1B[36m1\x1B[0m\t\x1B[1mn\x1B[0m\n",
                             "41-41");
    row.setting.out = Output::terminal();
    expectRow(row);
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
    };
    for (const auto& [grants, label] : cases) {
        ScriptedService service({answer(R"({"nodes":[{"sharedWith":[)" + grants + "]}]}")});
        const std::string out = runTool({"ls"}).out;
        EXPECT_THAT(out, testing::HasSubstr("\tme\t" + label + "\t"));
    }
}

TEST(Listing, ShowsTheTimeOfRecentNodesInTheLocalZone) {
    const std::time_t recent = std::time(nullptr) - 86'400 * 100;
    std::tm fields{};
    gmtime_r(&recent, &fields);
    char given[64];
    char shown[64];
    std::strftime(given, sizeof given, "%b %d, %Y, %I:%M %p XYZ", &fields);
    std::strftime(shown, sizeof shown, "\t%b %e %H:%M\t", &fields);
    ScriptedService service({answer(R"({"nodes":[{"updatedAt":")" + std::string(given) + "\"}]}")});
    EXPECT_THAT(runTool({"ls"}).out, testing::HasSubstr(shown));
}

} // namespace
