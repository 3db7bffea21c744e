// Figures of use. Of the library: every own conversation counts as much as it is long, on the day of its last change.
// Of skills: the uses that the file holds, and what was said of them.
#include <algorithm>
#include <map>

#include <boost/json.hpp>

#include "Endpoints.h"
#include "library/NodeFilter.h"
#include "skills/Skill.h"

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

void requireSkill(const Library& library, const std::string& name) {
    const auto named = recordsWith(library, "skills", "name", name);
    if (std::ranges::none_of(named, [](const Record& item) { return text(item, "kind") == "skill"; })) {
        throw RequestError(404, "No skill is named " + name + ".");
    }
}

/// The uses that are asked for, the newest first: of a team everybody's, else the signed-in user's.
std::vector<Record> requestedUses(const Library& library, const Request& request) {
    const std::string until = request.text("until").value_or(period(now(), "day"));
    const Instant last = parseInstant(until + "T00:00Z").value_or(now());
    const std::string since = request.text("since").value_or(period(last - days(29), "day"));
    const auto team = request.text("teamId");
    const auto isTeam = [&](const json::value& each) { return text(each.as_object(), "id") == *team; };
    if (team && std::ranges::none_of(library.account.at("teams").as_array(), isTeam)) {
        throw RequestError(404, "No team has the id " + *team + ".");
    }
    const auto isAsked = [&](std::string_view key, std::string_view value) {
        return request.text(key).value_or(std::string(value)) == value;
    };
    std::vector<Record> uses;
    for (const Record& item : recordsWith(library, "skills", "kind", "skill")) {
        const json::value* all = item.if_contains("uses");
        for (const json::value& each : all ? all->as_array() : json::array()) {
            Record use = each.as_object();
            const json::object& user = *library.findUser(text(use, "user"));
            const Instant at = instantUnder(use, "at").value();
            const std::string day = period(at, "day");
            if (since <= day && day <= until && isAsked("skillName", text(item, "name")) &&
                isAsked("sourceKind", text(use, "sourceKind")) && (team || library.isCurrentUser(user))) {
                use["skill"] = item.at("name");
                use["user"] = user.at("name");
                use["period"] = period(at, request.text("granularity").value_or("day"));
                uses.push_back(std::move(use));
            }
        }
    }
    std::ranges::stable_sort(uses, std::greater(), [](const Record& use) { return text(use, "at"); });
    return uses;
}

/// How many of the uses have each value of the key, the most frequent value first.
std::vector<Record> counted(const std::vector<Record>& uses, std::string_view key) {
    std::vector<Record> counts;
    for (const Record& use : uses) {
        auto count = std::ranges::find(counts, use.at(key), [&](const Record& each) { return each.at(key); });
        if (count == counts.end()) {
            count = counts.insert(count, Record{{key, use.at(key)}, {"invocations", 0}, {"successes", 0}});
        }
        count->at("invocations").as_int64() += 1;
        count->at("successes").as_int64() += use.at("succeeded").as_bool() ? 1 : 0;
    }
    std::ranges::stable_sort(counts, std::greater(),
                             [](const Record& each) { return each.at("invocations").as_int64(); });
    return counts;
}

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

json::value reportSkillUse(Library& library, const Request& request) {
    const auto uses = requestedUses(library, request);
    const auto skills = counted(uses, "skill");
    json::array trend;
    for (const Record& skill : skills) {
        if (trend.size() == request.number("trendSkillLimit", 10)) {
            break;
        }
        auto own = uses;
        std::erase_if(own, [&](const Record& use) { return use.at("skill") != skill.at("skill"); });
        auto periods = counted(own, "period");
        std::ranges::sort(periods, {}, [](const Record& each) { return text(each, "period"); });
        trend.push_back({{"skill", skill.at("skill")}, {"periods", json::array(periods.begin(), periods.end())}});
    }
    json::object answer{{"trend", std::move(trend)}};
    answer["skills"] = requestedPage(skills, request, "skillLimit", "skillOffset", "nextOffset");
    answer["people"] = requestedPage(counted(uses, "user"), request, "peopleLimit", "peopleOffset", "nextOffset");
    if (const auto name = request.text("skillName")) {
        requireSkill(library, *name);
        const auto feedback = recordsWith(library, "feedback", "skillName", *name);
        answer["recentUses"] = requestedPage(uses, request, "recentLimit", "recentCursor", "nextCursor");
        answer["feedback"] = requestedPage(feedback, request, "feedbackLimit", "feedbackCursor", "nextCursor");
    }
    return answer;
}

json::value takeSkillFeedback(Library& library, const Request& request) {
    requireSkill(library, std::string(text(request.body, "skillName")));
    library.records["feedback"].push_back(request.body);
    return {{"received", true}};
}

} // namespace

Endpoints usageEndpoints() {
    static constexpr Endpoint endpoints[] = {
        {"GET", "/api/analytics", readAnalytics},
        {"GET", "/api/skill/analytics", reportSkillUse},
        {"POST", "/api/skill/feedback", takeSkillFeedback},
    };
    return endpoints;
}

} // namespace sample
