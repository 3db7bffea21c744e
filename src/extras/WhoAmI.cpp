// `whoami`: who is signed in.
#include "core/CommandModel.h"
#include "core/output/LabelledRows.h"
#include "core/service/Answers.h"
#include "extras/Extras.h"
#include "platform/files/Streams.h"
#include "platform/text/Text.h"

namespace orvane {

namespace {

using platform::JsonObject;

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
    const auto addText = [&](std::string_view label, std::string_view key, Style style) {
        if (const auto text = user.text(key); text && !text->empty()) {
            rows.push_back({label, std::string(*text), style});
        }
    };
    addText("name", "name", Style::bold);
    addText("email", "email", Style::green);
    addText("user", "id", Style::cyan);
    if (const auto teams = user.objects("teams"); teams && !teams->empty()) {
        rows.push_back({"teams", teamNames(*teams)});
    }
    if (const auto isSyncing = user.boolean("cloudSyncEnabled")) {
        rows.push_back({"sync", *isSyncing ? "on" : "off", Style::dim});
    }
    return rows;
}

struct WhoAmI final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "whoami",
                .abstract = "Show the authenticated Orvane user: name, email, user id, and teams."};
    }

    void run() const override {
        renderObject(serviceGet("/api/whoami"), [](const JsonObject& user) {
            if (user.boolean("authenticated") == false) {
                platform::writeStandardOutput("Not signed in to Orvane.\n");
            } else {
                printLabelledRows(userRows(user));
            }
        });
    }
};

} // namespace

CommandType whoamiCommand() {
    return CommandType::of<WhoAmI>();
}

} // namespace orvane
