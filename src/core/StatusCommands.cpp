#include "core/StatusCommands.h"

#include "core/DisplayDates.h"
#include "core/Rendering.h"
#include "core/ServiceClient.h"
#include "platform/Streams.h"
#include "platform/Text.h"

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
    for (const std::string_view key : object.sortedKeys()) {
        if (!object.text(key)) {
            return false;
        }
    }
    return true;
}

std::vector<LabelledRow> statusRows(const JsonObject& status) {
    std::vector<LabelledRow> rows;
    rows.push_back({"status", std::string(status.text("status").value_or("?")), "32"});
    if (const auto version = status.text("version")) {
        rows.push_back({"version", versionValue(status, *version), "2"});
    }
    if (const auto access = status.boolean("cli_access")) {
        rows.push_back({"access", *access ? "yes" : "no", *access ? "32" : "31"});
    }
    if (const auto user = status.object("user")) {
        rows.push_back({"user", userValue(*user), "32"});
    } else if (status.boolean("authenticated") == false) {
        rows.push_back({"user", "not signed in", "31"});
    }
    rows.push_back({"ingested", dateValue(status, "lastIngestionAt"), "2"});
    if (const auto deployment = status.object("deployment"); deployment && holdsTextsOnly(*deployment)) {
        if (const auto name = deployment->text("name")) {
            const bool isOnPremises = deployment->text("kind") == "on_prem";
            rows.push_back({"deployment", std::string(*name) + (isOnPremises ? " (On-Prem)" : ""), "2"});
        }
    }
    rows.push_back({"synced", dateValue(status, "lastCloudSyncAt"), "2"});
    return rows;
}

std::string teamNames(const std::vector<JsonObject>& teams) {
    std::vector<std::string> names;
    for (const JsonObject& team : teams) {
        if (const auto name = team.text("name")) {
            names.emplace_back(*name);
        }
    }
    return platform::joined(names, ", ");
}

std::vector<LabelledRow> userRows(const JsonObject& user) {
    std::vector<LabelledRow> rows;
    const auto addText = [&](std::string_view label, std::string_view key, std::string_view code) {
        if (const auto text = user.text(key); text && !text->empty()) {
            rows.push_back({label, std::string(*text), code});
        }
    };
    addText("name", "name", "1");
    addText("email", "email", "32");
    addText("user", "id", "36");
    if (const auto teams = user.objects("teams"); teams && !teams->empty()) {
        rows.push_back({"teams", teamNames(*teams), ""});
    }
    if (const auto isSyncing = user.boolean("cloudSyncEnabled")) {
        rows.push_back({"sync", *isSyncing ? "on" : "off", "2"});
    }
    return rows;
}

} // namespace

CommandConfiguration Status::configuration() {
    return {.abstract = "Show app health and identity: version, CLI access, signed-in user, last ingestion and cloud "
                        "sync."};
}

void Status::run() const {
    const ServiceReply reply = serviceGet("/api/status", standardTimeout);
    failOnErrorStatus(reply);
    renderObject(reply.data, [](const JsonObject& status) { printLabelledRows(statusRows(status)); });
}

CommandConfiguration WhoAmI::configuration() {
    return {.commandName = "whoami",
            .abstract = "Show the authenticated Orvane user: name, email, user id, and teams."};
}

void WhoAmI::run() const {
    const ServiceReply reply = serviceGet("/api/whoami", standardTimeout);
    failOnErrorStatus(reply);
    renderObject(reply.data, [](const JsonObject& user) {
        if (user.boolean("authenticated") == false) {
            platform::writeStandardOutput("Not signed in to Orvane.\n");
        } else {
            printLabelledRows(userRows(user));
        }
    });
}

} // namespace orvane
