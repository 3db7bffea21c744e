// The skills and bundles of the library. A bundle groups skills, one level deep. Ids are checked while a command runs.
#include "core/inputs/Checks.h"
#include "core/inputs/Confirmation.h"
#include "core/inputs/Identifiers.h"
#include "core/service/Answers.h"
#include "skills/SkillCommands.h"
#include "skills/SkillInputs.h"

namespace orvane {

namespace {

struct SkillLs final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "ls",
                .abstract = "List top-level skills and bundles, or one bundle's children, as JSON."};
    }

    Argument<std::optional<std::string>> bundle{
        *this, "bundle", "Optional bundle ID. Omit to list the top level. One level at a time; no recursion."};

    void run() const override {
        passOnGet(bundle ? skillItemPath(*bundle, "bundle") + "/children" : "/api/skill/roots");
    }
};

struct SkillStat final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "stat",
                .abstract = "Show one skill or bundle: kind, owner, your access, revision, and package status."};
    }

    Argument<std::string> id{*this, "id", skillItemIdHelp};

    void run() const override { passOnGet(skillItemPath(*id)); }
};

constexpr const char* creationPath = "/api/skill/create";

JsonBody creationBody(std::string_view kind, const std::string& name) {
    JsonBody body;
    body.set("kind", kind).set("name", name);
    return body;
}

struct SkillCreate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "create",
                .abstract = "Create a skill. Creation is atomic: the skill and its SKILL.md template appear together."};
    }

    Argument<std::string> name{*this, "name", "The skill name."};
    Option<std::optional<std::string>> parent{
        *this, "parent", "Bundle ID to create inside. Omit to create at the top level (uncategorized)."};
    Option<std::optional<std::string>> description{
        *this, "description",
        "Frontmatter description. Omit to derive it from the first 20 characters of the content, matching the "
        "installer's fallback."};
    Option<std::optional<std::string>> content{*this, "content",
                                               "The SKILL.md body (the instructions the agent follows)."};
    Option<std::optional<FilePath>> contentFile{*this, "content-file",
                                                "Read the SKILL.md body from a file instead of --content."};

    void validate() const override {
        validateAtMostOne({content, contentFile}, "Pass at most one of --content or --content-file.");
    }

    void run() const override {
        JsonBody body = creationBody("skill", name);
        if (parent) {
            body.set("parentId", canonicalUUID(*parent, "parent"));
        }
        body.setIfGiven("description", description).setIfGiven("content", content);
        if (contentFile) {
            body.set("content",
                     readSkillText(*contentFile, "Could not read --content-file at " + contentFile->bytes + "."));
        }
        passOnPostJSON(creationPath, std::move(body));
    }
};

struct SkillBundleCreate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "create",
                .abstract = "Create a top-level bundle. Bundles group skills; they cannot be nested and have no "
                            "package of their own."};
    }

    Argument<std::string> name{*this, "name", "The bundle name."};

    void run() const override { passOnPostJSON(creationPath, creationBody("bundle", name)); }
};

struct SkillBundle final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "bundle",
                .abstract = "Manage skill bundles.",
                .ungroupedSubcommands = {CommandType::of<SkillBundleCreate>()}};
    }
};

struct SkillRename final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "rename",
                .abstract = "Rename a skill or bundle. Requires Editor access. Skill renames go through the "
                            "collaborative document title."};
    }

    Argument<std::string> id{*this, "id", skillItemIdHelp};
    Argument<std::string> name{*this, "name", "The new name."};
    Option<std::optional<std::string>> ifRevision{
        *this, "if-revision",
        "Only rename if the item's revision still matches; a mismatch is a 409, never a silent retry."};

    void run() const override {
        JsonBody body;
        body.set("name", name).setIfGiven("ifRevision", ifRevision);
        passOnPostJSON(skillItemPath(*id) + "/rename", std::move(body));
    }
};

struct SkillMove final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "move",
                .abstract = "Move a skill into a bundle, or to the top level. Bundles always remain top-level."};
    }

    Argument<std::string> id{*this, "id", skillIdHelp};
    Option<std::optional<std::string>> to{*this, "to", "Destination bundle ID."};
    Flag<bool> topLevel{*this, "top-level", "Move to the top level (uncategorized) instead of into a bundle."};
    Option<std::optional<std::string>> ifRevision{
        *this, "if-revision",
        "Only move if the item's revision still matches; a mismatch is a 409, never a silent retry."};

    void validate() const override {
        validateExactlyOne({to, topLevel}, "Pass exactly one destination: --to <bundle-id> or --top-level.");
    }

    void run() const override {
        const std::string path = skillItemPath(*id) + "/move";
        JsonBody body;
        if (to) {
            body.set("parentId", canonicalUUID(*to, "to"));
        } else {
            body.set("topLevel", true);
        }
        body.setIfGiven("ifRevision", ifRevision);
        passOnPostJSON(path, std::move(body));
    }
};

struct SkillRemove final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "remove",
                .abstract = "Delete your skill for everyone, or remove someone else's skill from your Orvane."};
    }

    Argument<std::string> id{*this, "id", skillItemIdHelp};
    Flag<bool> force{*this, "force", "Skip the interactive confirmation."};
    Option<std::optional<std::string>> ifRevision{
        *this, "if-revision",
        "Only delete if the item's revision still matches; a mismatch is a 409, never a silent retry."};

    void run() const override {
        const std::string path = skillItemPath(*id) + "/delete";
        if (!force) {
            confirmDeletion("Deleting this will remove it from Orvane and uninstall the skill. Anything shared with "
                            "other users will disappear from their Orvane, but their local copies will stay "
                            "unchanged.",
                            "Deletion requires interactive confirmation from a terminal. Pass --force to skip it.");
        }
        JsonBody body;
        body.setIfGiven("ifRevision", ifRevision);
        passOnPostJSON(path, std::move(body));
    }
};

} // namespace

CommandType skillLsCommand() {
    return CommandType::of<SkillLs>();
}

CommandType skillStatCommand() {
    return CommandType::of<SkillStat>();
}

CommandType skillCreateCommand() {
    return CommandType::of<SkillCreate>();
}

CommandType skillBundleCommand() {
    return CommandType::of<SkillBundle>();
}

CommandType skillRenameCommand() {
    return CommandType::of<SkillRename>();
}

CommandType skillMoveCommand() {
    return CommandType::of<SkillMove>();
}

CommandType skillRemoveCommand() {
    return CommandType::of<SkillRemove>();
}

} // namespace orvane
