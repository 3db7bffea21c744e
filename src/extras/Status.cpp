// `status`: whether the application is there, and how up to date its library is.
#include <algorithm>

#include "core/CommandModel.h"
#include "core/output/DisplayDates.h"
#include "core/output/LabelledRows.h"
#include "core/service/Answers.h"
#include "extras/Extras.h"
#include "platform/text/Text.h"

namespace orvane {

namespace {

using platform::JsonObject;

std::string versionValue(const JsonObject& status, std::string_view version) {
    const auto build = status.text("build_number");
    return std::string(version) + (build ? " (build " + std::string(*build) + ")" : "");
}

std::string userValue(const JsonObject& user) {
    std::vector<std::string> parts;
    for (const char* key : {"name", "email"}) {
        if (const auto text = user.text(key); text && !text->empty()) {
            parts.emplace_back(*text);
        }
    }
    return parts.empty() ? "?" : platform::joined(parts, " · ");
}

std::string dateValue(const JsonObject& status, std::string_view key) {
    const auto text = status.text(key);
    return text ? formatDisplayDate(*text) : "never";
}

/// Whether every value of `object` is a text.
bool holdsTextsOnly(const JsonObject& object) {
    return std::ranges::all_of(object.members(), [](const auto& member) { return member.second.isText(); });
}

std::vector<LabelledRow> statusRows(const JsonObject& status) {
    std::vector<LabelledRow> rows;
    rows.push_back({"status", std::string(status.text("status").value_or("?")), Style::green});
    if (const auto version = status.text("version")) {
        rows.push_back({"version", versionValue(status, *version), Style::dim});
    }
    if (const auto access = status.boolean("cli_access")) {
        rows.push_back({"access", *access ? "yes" : "no", *access ? Style::green : Style::red});
    }
    if (const auto user = status.object("user")) {
        rows.push_back({"user", userValue(*user), Style::green});
    } else if (status.boolean("authenticated") == false) {
        rows.push_back({"user", "not signed in", Style::red});
    }
    rows.push_back({"ingested", dateValue(status, "lastIngestionAt"), Style::dim});
    if (const auto deployment = status.object("deployment"); deployment && holdsTextsOnly(*deployment)) {
        if (const auto name = deployment->text("name")) {
            const bool isOnPremises = deployment->text("kind") == "on_prem";
            rows.push_back({"deployment", std::string(*name) + (isOnPremises ? " (On-Prem)" : ""), Style::dim});
        }
    }
    rows.push_back({"synced", dateValue(status, "lastCloudSyncAt"), Style::dim});
    return rows;
}

struct Status final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "status",
                .abstract = "Show app health and identity: version, CLI access, signed-in user, last ingestion and "
                            "cloud sync."};
    }

    void run() const override {
        renderObject(serviceGet("/api/status"),
                     [](const JsonObject& status) { printLabelledRows(statusRows(status)); });
    }
};

} // namespace

CommandType statusCommand() {
    return CommandType::of<Status>();
}

} // namespace orvane
