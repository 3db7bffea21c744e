// Figures of use: every own conversation counts as much as it is long, on the day of its last change.
#include <map>

#include <boost/json.hpp>

#include "filter.h"
#include "handlers.h"

namespace sample {

namespace {

using std::chrono::days;

Instant rangeStart(std::string_view range) {
    const std::map<std::string_view, int> lengths{{"7d", 7}, {"30d", 30}, {"90d", 90}, {"12m", 365}};
    const auto length = lengths.find(range);
    if (length == lengths.end()) {
        throw RequestError(400, "There is no range " + std::string(range) + ".");
    }
    return now() - days(length->second);
}

/// The hour, day, week, month or year of an instant, as far as its timestamp tells.
std::string period(Instant instant, std::string_view granularity) {
    const std::map<std::string_view, std::size_t> lengths{
        {"hour", 13}, {"day", 10}, {"week", 10}, {"month", 7}, {"year", 4}};
    if (granularity == "week") {
        const auto day = std::chrono::floor<days>(instant);
        instant = day - (std::chrono::weekday(day) - std::chrono::Monday);
    }
    const auto length = lengths.find(granularity);
    if (length == lengths.end()) {
        throw RequestError(400, "There is no granularity " + std::string(granularity) + ".");
    }
    return isoTimestamp(instant).substr(0, length->second);
}

/// What the users with `isCounted` used in the range that is asked for.
template <class IsCounted>
json::object figures(const Library& library, const Request& request, IsCounted isCounted) {
    constexpr std::size_t bytesOfToken = 4;
    const Instant start = rangeStart(request.text("range").value_or("30d"));
    const std::string granularity = request.text("granularity").value_or("day");
    std::map<std::string, std::size_t> periods;
    std::size_t total = 0;
    for (const Node& node : library.nodes) {
        if (isOfKind(node, "transcript") && lastChange(node) >= start && isCounted(text(node, "owner"))) {
            const std::size_t tokens = text(node, "text").size() / bytesOfToken;
            periods[period(lastChange(node), granularity)] += tokens;
            total += tokens;
        }
    }
    json::array trend;
    for (const auto& [name, tokens] : periods) {
        trend.push_back({{"period", name}, {"tokens", tokens}});
    }
    return {{"totalTokens", total}, {"trend", trend}};
}

} // namespace

json::value readAnalytics(Library& library, const Request& request) {
    const std::string_view own = text(library.users.front(), "id");
    const bool isTeam = request.text("teamId").has_value();
    json::object answer = figures(library, request, [&](std::string_view owner) { return isTeam || owner == own; });
    answer["timezone"] = request.text("timezone").value_or("UTC");
    if (const auto id = request.text("trendUserId")) {
        if (!library.findUser(*id)) {
            throw RequestError(404, "No user has the id " + *id + ".");
        }
        answer["user"] = figures(library, request, [&](std::string_view owner) { return owner == *id; });
    }
    return answer;
}

} // namespace sample
