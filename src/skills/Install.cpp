// `install`, `uninstall`, `installed` and `refresh`: the skills that the application keeps in the agents' directories
// on this device.
#include <algorithm>
#include <array>

#include "core/inputs/Confirmation.h"
#include "core/output/MutationLine.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "platform/files/Streams.h"
#include "skills/SkillCommands.h"
#include "skills/SkillInputs.h"

namespace orvane {

namespace {

using platform::JsonObject;

constexpr std::chrono::seconds materializationTimeout{120};
constexpr std::chrono::seconds reconciliationTimeout{300};
constexpr int conflictStatus = 409;

constexpr std::array<std::string_view, 2> agentNames{"claude", "codex"};

void checkAgentName(const std::optional<std::string>& agent) {
    if (agent && std::find(agentNames.begin(), agentNames.end(), *agent) == agentNames.end()) {
        throw ValidationError{"agent must be one of: claude, codex."};
    }
}

/// What `install` and `uninstall` have in common: an item, and the agents that it is for.
struct SkillInstallation : ParsableCommand {
    Argument<std::string> id{*this, "id", skillItemIdHelp};
    Option<std::optional<std::string>> agent{
        *this, "agent", "Limit to one agent (claude or codex). Omit for all agents.", offering(agentNames)};

    /// The body that selects the agents; without any, all of them are meant. Throws ValidationError.
    JsonBody agentSelection() const {
        checkAgentName(agent);
        JsonBody body;
        if (agent) {
            body.set("agents", std::vector<std::string>{*agent});
        }
        return body;
    }
};

/// The service's message when skills of that name are in the way, and a person may have them replaced.
std::optional<std::string> conflictMessage(const ServiceReply& reply) {
    const auto document =
        reply.status == conflictStatus ? platform::JsonDocument::parseObject(reply.data) : std::nullopt;
    if (!document || document->object().text("error") != "name_conflict" ||
        document->object().boolean("confirmationRequired") != true) {
        return std::nullopt;
    }
    const auto message = document->object().text("message");
    return message ? std::optional<std::string>(*message) : std::nullopt;
}

void confirmConflictReplacement(std::string_view message) {
    confirm({.message = message,
             .prompt = "Replace all and continue? [y/N] ",
             .noTerminal = "Name-conflicted installs require confirmation from an interactive terminal.",
             .refused = "Installation cancelled."});
}

void printAgentSummary(const ServiceReply& reply, std::string_view verb) {
    renderObject(reply, [&](const JsonObject& item) {
        std::string line(verb);
        line.append(" ").append(item.text("kind").value_or("skill")).append(" ");
        line.append(item.text("name").value_or(item.text("id").value_or("")));
        const auto agents = item.texts("agents").value_or(std::vector<std::string_view>());
        std::string_view separator = " → ";
        for (const std::string_view agent : agents) {
            line.append(std::exchange(separator, ", ")).append(agent);
        }
        printReportLine(agents.empty() ? line + ": no agents affected" : line);
    });
}

struct SkillInstall final : SkillInstallation {
    static CommandConfiguration configuration() {
        return {.commandName = "install",
                .abstract = "Install a skill (or subscribe to a bundle) into agents on this device. Default: all "
                            "agents."};
    }

    void run() const override {
        const std::string path = skillItemPath(*id) + "/install";
        JsonBody body = agentSelection();
        ServiceReply reply = servicePostJSON(path, body, materializationTimeout);
        if (const auto message = conflictMessage(reply)) {
            confirmConflictReplacement(*message);
            reply = servicePostJSON(path, std::move(body.set("replaceConflicts", true)), materializationTimeout);
        }
        printAgentSummary(reply, "installed");
    }
};

struct SkillUninstall final : SkillInstallation {
    static CommandConfiguration configuration() {
        return {.commandName = "uninstall",
                .abstract = "Remove a skill's installation (or a bundle's subscription) from agents on this device. "
                            "Default: all agents."};
    }

    void run() const override {
        const std::string path = skillItemPath(*id) + "/uninstall";
        printAgentSummary(servicePostJSON(path, agentSelection(), materializationTimeout), "uninstalled");
    }
};

struct SkillInstalled final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "installed",
                .abstract = "Report what is installed on THIS device: each skill, its agents, and direct vs "
                            "via-bundle source."};
    }

    Option<std::optional<std::string>> agent{*this, "agent", "Limit to one agent (claude or codex).",
                                             offering(agentNames)};

    void run() const override {
        checkAgentName(agent);
        passOnGet(buildQueryPath("/api/skill/installed", QueryItems().addIfGiven("agent", agent)));
    }
};

struct SkillRefresh final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "refresh",
                .abstract = "Force-reconcile now: re-materialize current cloud versions, sync subscriptions, repair "
                            "local drift."};
    }

    void run() const override {
        failOnErrorStatus(servicePostJSON("/api/skill/refresh", JsonBody(), reconciliationTimeout));
        platform::writeStandardOutput("refreshed\n");
    }
};

} // namespace

CommandType skillInstallCommand() {
    return CommandType::of<SkillInstall>();
}

CommandType skillUninstallCommand() {
    return CommandType::of<SkillUninstall>();
}

CommandType skillInstalledCommand() {
    return CommandType::of<SkillInstalled>();
}

CommandType skillRefreshCommand() {
    return CommandType::of<SkillRefresh>();
}

} // namespace orvane
