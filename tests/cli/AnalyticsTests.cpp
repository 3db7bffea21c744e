#include "support/CommandRow.h"

using namespace testsupport;

namespace {

const std::string defaults = "GET /api/analytics?range=30d&granularity=day&timezone=";

TEST(Analytics, SendsItsOptions) {
    expectRows({
        requestRow("analytics", defaults + "UTC"),
        requestRow("analytics --trend-user u/1 --team T --timezone Etc/GMT+1 --granularity hour --range 12m",
                   "GET /api/analytics?range=12m&granularity=hour&timezone=Etc/GMT%2B1&teamId=T&trendUserId=u/1"),
        requestRow({"analytics", "--team", " T\n"}, defaults + "UTC&teamId=%20T%0A"),
    });
}

TEST(Analytics, AsksInTheZoneOfTheMachine) {
    for (const auto& [setting, zone] : std::vector<std::pair<const char*, std::string>>{
             {"Asia/Tokyo", "Asia/Tokyo"},
             {"\xFF\x01", "GMT"},
         }) {
        CommandRow asked = requestRow("analytics", defaults + zone);
        asked.setting.environment["TZ"] = setting;
        expectRow(asked);
    }
}

TEST(Analytics, RefusesInOrder) {
    expectRefused("analytics --range 1y --granularity minute", "range must be 7d, 30d, 90d, or 12m.");
    expectRefused("analytics --granularity minute --timezone Mars/Base",
                  "granularity must be hour, day, week, month, or year.");
    expectRefused({"analytics", "--timezone", "Mars/Base", "--team", ""}, "timezone must be a valid IANA timezone.");
    expectRefused({"analytics", "--team", " \n", "--trend-user", ""}, "team must not be empty.");
    expectRefused({"analytics", "--trend-user", "\u00A0"}, "trend-user must not be empty.");
    expectRefused("analytics --trend-user x", "trend-user requires --team.");
    for (const char* range : {"7d", "90d"}) {
        expectRow(requestRow(with("analytics --range", range),
                             "GET /api/analytics?range=" + std::string(range) + "&granularity=day&timezone=UTC"));
    }
}

} // namespace
