// `analytics`: how many tokens the user, or a team, used.
#include <algorithm>
#include <array>

#include "core/inputs/ReportingChecks.h"
#include "core/service/Answers.h"
#include "core/service/Query.h"
#include "extras/Extras.h"
#include "platform/text/Text.h"
#include "platform/time/TimeZones.h"

namespace orvane {

namespace {

constexpr std::array<std::string_view, 4> ranges{"7d", "30d", "90d", "12m"};

void validateRange(std::string_view range) {
    if (std::find(ranges.begin(), ranges.end(), range) == ranges.end()) {
        throw ValidationError{"range must be 7d, 30d, 90d, or 12m."};
    }
}

void validateNotBlank(const std::optional<std::string>& text, const char* name) {
    if (text && platform::trimmed(*text).empty()) {
        throw ValidationError{std::string(name) + " must not be empty."};
    }
}

struct Analytics final : ParsableCommand {
    static CommandConfiguration configuration() {
        return {.commandName = "analytics", .abstract = "Print token-usage analytics as JSON."};
    }

    Option<std::string> range{*this, "range", "30d", "Reporting window: 7d, 30d, 90d, or 12m.", offering(ranges)};
    Option<std::string> granularity{*this, "granularity", "day", granularityHelp, offering(granularities)};
    Option<std::string> timeZone{*this, "timezone", platform::currentTimeZoneIdentifier(),
                                 "IANA timezone used for reporting periods."};
    Option<std::optional<std::string>> team{
        *this, "team", "Team ID to report instead of personal usage. Team admin access is required."};
    Option<std::optional<std::string>> trendUser{*this, "trend-user",
                                                 "Team member user ID whose individual trend should be included."};

    void validate() const override {
        validateRange(*range);
        validateGranularity(*granularity);
        validateTimeZone(*timeZone);
        validateNotBlank(team, "team");
        validateNotBlank(trendUser, "trend-user");
        if (trendUser && !team) {
            throw ValidationError{"trend-user requires --team."};
        }
    }

    void run() const override {
        passOnGet(buildQueryPath("/api/analytics", QueryItems()
                                                       .add("range", range)
                                                       .add("granularity", granularity)
                                                       .add("timezone", timeZone)
                                                       .addIfGiven("teamId", team)
                                                       .addIfGiven("trendUserId", trendUser)));
    }
};

} // namespace

CommandType analyticsCommand() {
    return CommandType::of<Analytics>();
}

} // namespace orvane
