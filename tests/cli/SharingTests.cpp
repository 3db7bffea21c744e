#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string path = "/api/sharing/" + id;

/// The body of a grant: what differs from the defaults replaces it.
std::string grant(const std::string& team, const std::string& audience, const std::string& users,
                  const std::string& rest = R"("scope":"all","repoKeys":[],"folderKeys":[])") {
    return R"({"teamId":")" + team + R"(","audience":")" + audience + R"(","userIds":)" + users + "," + rest + "}";
}

TEST(Sharing, SendsTheIdAsTyped) {
    const auto adds = [](const std::string& words, const std::string& body, Location where = Location::current()) {
        return requestRow("sharing add " + id + " " + words, "POST " + path + "\n" + body, where);
    };
    const auto removes = [](const std::string& words, const std::string& body, Location where = Location::current()) {
        return requestRow("sharing remove " + id + " " + words, "DELETE " + path + "\n" + body, where);
    };
    const std::string selection = R"("repoKeys":["b","a"],"folderKeys":["f"])";
    expectRows({
        requestRow("sharing get " + id, "GET " + path),
        adds("--team T", grant("T", "everyone", "[]")),
        adds("--team T --audience admins --access viewer",
             grant("T", "admins", "[]", R"("scope":"all","repoKeys":[],"folderKeys":[],"accessMode":"viewer")")),
        adds("--audience user --email @ --access editor",
             grant("", "user", "[]",
                   R"("scope":"all","repoKeys":[],"folderKeys":[],"audienceEmail":"@","accessMode":"editor")")),
        adds("--user V --team T --audience user --user U", grant("T", "user", R"(["V","U"])")),
        adds("--team T --scope repos --repo b --folder f --repo a",
             grant("T", "everyone", "[]", R"("scope":"repos",)" + selection)),
        adds("--team T --scope repos --repo b",
             grant("T", "everyone", "[]", R"("scope":"repos","repoKeys":["b"],"folderKeys":[])")),
        adds("--team T --scope folders --folder f --folder e",
             grant("T", "everyone", "[]", R"("scope":"folders","repoKeys":[],"folderKeys":["f","e"])")),
        removes("--team T", R"({"teamId":"T","userIds":[],"teamACLOnly":false})"),
        removes("--team T --team-acl-only", R"({"teamId":"T","userIds":[],"teamACLOnly":true})"),
        removes("--user V --user U", R"({"teamId":"","userIds":["V","U"],"teamACLOnly":false})"),
        removes("--team T --user U", R"({"teamId":"T","userIds":["U"],"teamACLOnly":false})"),
    });
}

TEST(Sharing, AddsOnlyWhatAudienceAndScopeAllow) {
    const std::string team = "Team and admins audiences require --team and cannot include --user or --email.";
    const std::string person = "A personal user grant requires --email and cannot include --user.";
    const std::string members = "A team user grant requires --user and cannot include --email.";
    const std::string all = "--repo and --folder require --scope repos or --scope folders.";
    const std::string repos = "--scope repos requires at least one --repo.";
    const std::string folders = "--scope folders requires --folder and cannot include --repo.";
    const std::pair<const char*, const std::string&> breaches[] = {
        {"", team},
        {"--team T --user U", team},
        {"--team T --email a@b", team},
        {"--audience admins", team},
        {"--audience user", person},
        {"--audience user --email a@b --user U", person},
        {"--audience user --email nobody", person},
        {"--audience user --team T", members},
        {"--audience user --team T --user U --email a@b", members},
        {"--team T --repo r", all},
        {"--team T --folder f", all},
        {"--team T --scope repos --folder f", repos},
        {"--team T --scope folders", folders},
        {"--team T --scope folders --repo r --folder f", folders},
        {"--scope repos", team},
    };
    for (const auto& [words, message] : breaches) {
        expectRefused("sharing add " + id + " " + words, message);
    }
    expectRefused("sharing add x --scope repos", "node-id must be a UUID.");
}

TEST(Sharing, RemovesOnlyWhatIsNamed) {
    expectRefused("sharing get x", "node-id must be a UUID.");
    expectRefused("sharing remove x", "node-id must be a UUID.");
    expectRefused("sharing remove " + id + " --team-acl-only", "Provide --team or at least one --user.");
    expectRefused("sharing remove " + id + " --team-acl-only --user U", "--team-acl-only requires --team.");
    expectRefused("sharing remove " + id + " --team-acl-only --team T --user U",
                  "--team-acl-only cannot be combined with --user.");
}

} // namespace
