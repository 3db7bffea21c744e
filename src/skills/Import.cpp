// `import`: a skill that lies in an agent's directory, taken into the library where it is.
#include "core/inputs/Checks.h"
#include "core/service/Answers.h"
#include "platform/files/Files.h"
#include "platform/text/Text.h"
#include "skills/SkillCommands.h"

namespace orvane {

namespace {

enum class SkillImportAgentArgument { claude, codex };

constexpr ClosedSet<SkillImportAgentArgument, 2> closedSet(SkillImportAgentArgument) {
    using enum SkillImportAgentArgument;
    return {{{claude, "claude"}, {codex, "codex"}}};
}

constexpr std::chrono::seconds listingTimeout{120};
constexpr std::chrono::seconds importTimeout{300};

/// The path as the service can find it, from wherever it looks.
std::string absolutePath(std::string_view path) {
    std::string expanded = platform::expandTilde(path);
    if (!expanded.starts_with('/')) {
        expanded = platform::currentDirectory() + "/" + expanded;
    }
    return platform::repairedUtf8(platform::standardizedPath(expanded));
}

struct SkillImport final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "import",
                .abstract = "Import an existing local skill into Orvane and link the copy on disk.",
                .discussion = "Name the skill by its directory (the one containing SKILL.md), or by --agent with "
                              "--name for a directory directly under that agent's skills root. --list prints the local "
                              "skills Orvane does not manage yet. Import keeps the files where they are: the copy on "
                              "disk becomes the installed, synchronized copy of the new Orvane skill."};
    }

    Argument<std::optional<std::string>> path{
        *this,
        "path",
        "Skill directory under ~/.claude/skills, ~/.codex/skills, or ~/.agents/skills.",
        {.completion = CompletionKind{CompletionKind::Directory()}}};
    Option<std::optional<SkillImportAgentArgument>> agent{
        *this, "agent", "Agent whose skills root holds the skill (claude or codex). Requires --name."};
    Option<std::optional<std::string>> name{*this, "name", "Skill directory name under the --agent skills root."};
    Flag<bool> list{*this, "list", "List importable local skills as JSON instead of importing."};

    void validate() const override {
        if (list) {
            validateNone({path, agent, name}, "--list takes no path, --agent, or --name.");
        } else if (path) {
            validateNone({agent, name}, "Pass either a path, or --agent with --name.");
        } else if (!agent || !name || platform::trimmed(*name).empty()) {
            throw ValidationError{"Pass a skill directory, --agent with --name, or --list."};
        }
    }

    void run() const override {
        if (list) {
            passOnGet("/api/skill/importable", listingTimeout);
            return;
        }
        JsonBody body;
        if (path) {
            body.set("path", absolutePath(*path));
        } else {
            body.set("agent", argumentparser::rawText(*agent)).set("name", platform::trimmed(*name));
        }
        passOnPostJSON("/api/skill/import", std::move(body), importTimeout);
    }
};

} // namespace

CommandType skillImportCommand() {
    return CommandType::of<SkillImport>();
}

} // namespace orvane
