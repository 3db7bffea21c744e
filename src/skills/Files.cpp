// `file` and `validate`: the package of files that a skill is. An edit may leave a package that can't be installed; it
// says so and succeeds, and only `validate` fails of it.
#include "core/inputs/Checks.h"
#include "core/output/MutationLine.h"
#include "core/output/Style.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "platform/files/Streams.h"
#include "platform/text/Text.h"
#include "skills/SkillCommands.h"
#include "skills/SkillInputs.h"

namespace orvane {

namespace {

using platform::JsonObject;

constexpr std::chrono::seconds packageTimeout{60};
constexpr std::string_view validStatus = "valid";

std::string packagePath(std::string_view id) {
    return skillItemPath(id) + "/package";
}

ServiceReply editPackage(const std::string& package, std::string_view operation, JsonBody body) {
    return servicePostJSON(package + "/" + std::string(operation), std::move(body), packageTimeout);
}

void printPackageEdit(const ServiceReply& reply, std::string_view verb) {
    constexpr std::size_t shownHash = 12;
    renderObject(reply, [&](const JsonObject& edit) {
        const std::string_view status = edit.text("validationStatus").value_or("unknown");
        std::string line(verb);
        line.append(" ").append(edit.text("path").value_or("")).append(" — package ");
        line.append(platform::firstCharacters(edit.text("packageHash").value_or(""), shownHash));
        printReportLine(line.append(", ").append(status));
        if (status != validStatus) {
            platform::writeStandardError("warning: the package is not installable in this state; run `skill validate` "
                                         "for details\n");
        }
    });
}

struct SkillPackageLs final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "ls", .abstract = "List the skill's files and directories as JSON."};
    }

    Argument<std::string> id{*this, "id", skillIdHelp};

    void run() const override { passOnGet(packagePath(*id), packageTimeout); }
};

struct SkillPackageCat final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "cat", .abstract = "Print one package file's content. Defaults to SKILL.md."};
    }

    Argument<std::string> id{*this, "id", skillIdHelp};
    Argument<std::string> path{*this, "path", "SKILL.md", "File path inside the package. Defaults to SKILL.md."};

    void run() const override {
        const QueryItems items = QueryItems().add("path", path);
        const ServiceReply reply = serviceGet(buildQueryPath(packagePath(*id) + "/file", items), packageTimeout);
        renderObject(reply, [&](const JsonObject& file) {
            const auto text = file.text("text");
            if (!text) {
                printRawResponse(reply.data);
                return;
            }
            platform::writeStandardOutput({shownText(*text), text->ends_with('\n') ? "" : "\n"});
        });
    }
};

std::string readNewContent(const Option<std::optional<FilePath>>& file) {
    if (file) {
        return readSkillText(*file, "Could not read --from-file at " + file->bytes + ".");
    }
    std::string text = platform::readStandardInput();
    if (!platform::isValidUtf8(text)) {
        throw ValidationError{"stdin was not valid UTF-8."};
    }
    return text;
}

struct SkillPackageTee final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "tee",
                .abstract = "Create or wholly replace one file in the skill, from stdin or --from-file."};
    }

    Argument<std::string> id{*this, "id", skillIdHelp};
    Argument<std::string> path{*this, "path", "File path inside the package."};
    Option<std::optional<FilePath>> fromFile{*this, "from-file", "Read the content from a file instead of stdin."};

    void run() const override {
        const std::string package = packagePath(*id);
        JsonBody body;
        body.set("path", path).set("text", readNewContent(fromFile));
        printPackageEdit(editPackage(package, "write", std::move(body)), "wrote");
    }
};

struct SkillPackageSed final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "sed",
                .abstract = "Exact string replacement in one of the skill's files. The match must be unique unless "
                            "--all."};
    }

    Argument<std::string> id{*this, "id", skillIdHelp};
    Argument<std::string> path{*this, "path", "File path inside the package."};
    Option<std::optional<std::string>> oldText{*this, "old", "The exact text to find."};
    Option<std::optional<std::string>> newText{*this, "new", "The replacement text."};
    Option<std::optional<FilePath>> oldFile{*this, "old-file",
                                            "Read the text to find from a file (for multiline or special characters)."};
    Option<std::optional<FilePath>> newFile{*this, "new-file", "Read the replacement from a file."};
    Flag<bool> all{*this, "all", "Replace every occurrence instead of requiring a unique match."};

    void validate() const override {
        validateExactlyOne({oldText, oldFile}, "Pass exactly one of --old or --old-file.");
        validateExactlyOne({newText, newFile}, "Pass exactly one of --new or --new-file.");
    }

    void run() const override {
        const std::string package = packagePath(*id);
        JsonBody body;
        body.set("path", path);
        body.set("old", oldText ? *oldText : readSkillText(*oldFile, "Could not read --old-file."));
        body.set("new", newText ? *newText : readSkillText(*newFile, "Could not read --new-file."));
        body.set("all", all);
        printPackageEdit(editPackage(package, "sed", std::move(body)), "wrote");
    }
};

struct SkillPackageMkdir final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "mkdir",
                .abstract = "Create a directory inside the skill (with intermediate directories)."};
    }

    Argument<std::string> id{*this, "id", skillIdHelp};
    Argument<std::string> path{*this, "path", "Directory path inside the package."};

    void run() const override {
        JsonBody body;
        body.set("path", path);
        printPackageEdit(editPackage(packagePath(*id), "mkdir", std::move(body)), "created");
    }
};

struct SkillPackageMv final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "mv",
                .abstract = "Rename or move one of the skill's files or directories to a new path. SKILL.md is "
                            "protected."};
    }

    Argument<std::string> id{*this, "id", skillIdHelp};
    Argument<std::string> path{*this, "path", "Current path inside the package."};
    Option<std::string> to{*this, "to", "The new full path."};

    void run() const override {
        JsonBody body;
        body.set("path", path).set("to", to);
        printPackageEdit(editPackage(packagePath(*id), "move", std::move(body)), "moved");
    }
};

struct SkillPackageRm final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "rm",
                .abstract = "Delete one of the skill's files, or a directory with -r. SKILL.md is protected."};
    }

    Argument<std::string> id{*this, "id", skillIdHelp};
    Argument<std::string> path{*this, "path", "Path inside the package."};
    Flag<bool> recursive{
        *this, "recursive", "Delete a directory and its contents.", {.names = {customShort("r"), longName()}}};

    void run() const override {
        JsonBody body;
        body.set("path", path).set("recursive", recursive);
        printPackageEdit(editPackage(packagePath(*id), "delete", std::move(body)), "deleted");
    }
};

struct SkillFile final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {
            .commandName = "file",
            .abstract = "Read and edit the files inside one skill (a skill is a package of files; SKILL.md is "
                        "required).",
            .ungroupedSubcommands = {CommandType::of<SkillPackageLs>(), CommandType::of<SkillPackageCat>(),
                                     CommandType::of<SkillPackageTee>(), CommandType::of<SkillPackageSed>(),
                                     CommandType::of<SkillPackageMkdir>(), CommandType::of<SkillPackageMv>(),
                                     CommandType::of<SkillPackageRm>()},
        };
    }
};

struct SkillValidate final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "validate",
                .abstract = "Check whether the skill (its whole package of files) is installable. Exits nonzero when "
                            "not."};
    }

    Argument<std::string> id{*this, "id", skillIdHelp};

    void run() const override {
        const ServiceReply reply = serviceGet(packagePath(*id) + "/validate", packageTimeout);
        renderObject(reply, [&](const JsonObject& package) {
            const auto status = package.text("validationStatus");
            if (!status) {
                printRawResponse(reply.data);
                return;
            }
            printReportLine(*status);
            if (*status != validStatus) {
                throw ExitCode{ExitCode::failure};
            }
        });
    }
};

} // namespace

CommandType skillFileCommand() {
    return CommandType::of<SkillFile>();
}

CommandType skillValidateCommand() {
    return CommandType::of<SkillValidate>();
}

} // namespace orvane
