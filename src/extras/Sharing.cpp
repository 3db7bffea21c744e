// `sharing`: who else has a node, and how much of it. A team's grant names the team; a personal one goes to a person
// outside any.
#include "core/inputs/Checks.h"
#include "core/inputs/Identifiers.h"
#include "core/service/Answers.h"
#include "extras/Extras.h"

namespace orvane {

namespace {

enum class SharingAudienceArgument { everyone, admins, user };
enum class SharingScopeArgument { all, repos, folders };
enum class SharingAccessArgument { viewer, editor };

constexpr ClosedSet<SharingAudienceArgument, 3> closedSet(SharingAudienceArgument) {
    using enum SharingAudienceArgument;
    return {{{everyone, "everyone"}, {admins, "admins"}, {user, "user"}}};
}

constexpr ClosedSet<SharingScopeArgument, 3> closedSet(SharingScopeArgument) {
    using enum SharingScopeArgument;
    return {{{all, "all"}, {repos, "repos"}, {folders, "folders"}}};
}

constexpr ClosedSet<SharingAccessArgument, 2> closedSet(SharingAccessArgument) {
    using enum SharingAccessArgument;
    return {{{viewer, "viewer"}, {editor, "editor"}}};
}

std::string sharingPath(const std::string& nodeId) {
    return "/api/sharing/" + nodeId;
}

struct SharingGet final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "get", .abstract = "Show the direct sharing grants for a node."};
    }

    Argument<std::string> nodeId{*this, "node-id", "Owned node UUID."};

    void validate() const override { validateUUID(*nodeId, "node-id"); }

    void run() const override { passOnGet(sharingPath(*nodeId)); }
};

struct SharingAdd final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "add",
                .abstract = "Add or change a sharing grant. Re-running this command updates the selected audience's "
                            "grant."};
    }

    Argument<std::string> nodeId{
        *this, "node-id",
        "Integration account, provider chat session, ChatGPT Project, Apple Notes or Granola folder or note, context, "
        "folder, skill, or skill bundle UUID."};
    Option<std::optional<std::string>> team{*this, "team", "Team ID. Omit only for a personal --audience user grant."};
    Option<SharingAudienceArgument> audience{*this, "audience", SharingAudienceArgument::everyone,
                                             "Audience: everyone, admins, or user."};
    Option<std::vector<std::string>> users{
        *this, "user", {}, "Team member user ID. Repeat for multiple named team members."};
    Option<std::optional<std::string>> email{*this, "email",
                                             "Existing Orvane user's email for a personal grant outside a team."};
    Option<SharingScopeArgument> scope{
        *this, "scope", SharingScopeArgument::all,
        "Scope: all, repos, or folders. Repo scope may combine repeated --repo and --folder values; folder scope is "
        "folder-only."};
    Option<std::vector<std::string>> repos{
        *this, "repo", {}, "Exact normalized repo key, e.g. github.com/acme/widgets. Repeat to select several."};
    Option<std::vector<std::string>> folders{
        *this, "folder", {}, "Exact workspace path for repo-less sessions. Repeat to select several."};
    Option<std::optional<SharingAccessArgument>> access{
        *this, "access",
        "Viewer or editor for Orvane contexts, folders, skills, and skill bundles; ChatGPT Projects and Apple Notes or "
        "Granola folders/notes accept viewer only."};

    void validate() const override {
        validateUUID(*nodeId, "node-id");
        validateAudience();
        validateScope();
    }

    void run() const override {
        JsonBody body;
        body.set("teamId", team.get().value_or(""))
            .set("audience", audience)
            .set("userIds", users)
            .set("scope", scope)
            .set("repoKeys", repos)
            .set("folderKeys", folders)
            .setIfGiven("audienceEmail", email)
            .setIfGiven("accessMode", access);
        passOnPostJSON(sharingPath(*nodeId), std::move(body));
    }

private:
    void validateAudience() const {
        const bool hasTeam = Given(team).isGiven;
        const bool hasUsers = Given(users).isGiven;
        const bool hasEmail = Given(email).isGiven;
        if (*audience != SharingAudienceArgument::user) {
            validateThat(hasTeam && !hasUsers && !hasEmail,
                         "Team and admins audiences require --team and cannot include --user or --email.");
        } else if (hasTeam) {
            validateThat(hasUsers && !hasEmail, "A team user grant requires --user and cannot include --email.");
        } else {
            validateThat(hasEmail && email->find('@') != std::string::npos && !hasUsers,
                         "A personal user grant requires --email and cannot include --user.");
        }
    }

    void validateScope() const {
        const bool hasRepos = Given(repos).isGiven;
        const bool hasFolders = Given(folders).isGiven;
        switch (*scope) {
        case SharingScopeArgument::all:
            return validateThat(!hasRepos && !hasFolders,
                                "--repo and --folder require --scope repos or --scope folders.");
        case SharingScopeArgument::repos:
            return validateThat(hasRepos, "--scope repos requires at least one --repo.");
        case SharingScopeArgument::folders:
            return validateThat(hasFolders && !hasRepos,
                                "--scope folders requires --folder and cannot include --repo.");
        }
    }
};

struct SharingRemove final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "remove",
                .abstract = "Remove a whole team's grants, named-person grants, or only a team's Everyone/Admins "
                            "grant."};
    }

    Argument<std::string> nodeId{*this, "node-id", "Owned node UUID with a matching direct grant."};
    Option<std::optional<std::string>> team{*this, "team", "Team ID whose grants should be removed."};
    Option<std::vector<std::string>> users{
        *this, "user", {}, "User ID whose grant should be removed. Repeat for multiple people."};
    Flag<bool> teamACLOnly{*this, "team-acl-only",
                           "Remove only the team's Everyone/Admins row and preserve named-member grants."};

    void validate() const override {
        validateUUID(*nodeId, "node-id");
        const bool hasTeam = Given(team).isGiven;
        const bool hasUsers = Given(users).isGiven;
        validateThat(hasTeam || hasUsers, "Provide --team or at least one --user.");
        validateThat(!teamACLOnly || hasTeam, "--team-acl-only requires --team.");
        validateThat(!teamACLOnly || !hasUsers, "--team-acl-only cannot be combined with --user.");
    }

    void run() const override {
        JsonBody body;
        body.set("teamId", team.get().value_or("")).set("userIds", users).set("teamACLOnly", teamACLOnly);
        passOnDeleteJSON(sharingPath(*nodeId), std::move(body));
    }
};

struct Sharing final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "sharing",
            .abstract = "Inspect direct grants on owned nodes and manage grants for supported sharing targets.",
            .ungroupedSubcommands = {CommandType::of<SharingGet>(), CommandType::of<SharingAdd>(),
                                     CommandType::of<SharingRemove>()},
        };
    }
};

} // namespace

CommandType sharingCommand() {
    return CommandType::of<Sharing>();
}

} // namespace orvane
