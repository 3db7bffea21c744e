#include "parameters.h"

#include "text.h"

namespace sample {

namespace {

std::optional<Instant> requestedInstant(const Request& request, std::string_view key, DayEdge edge) {
    const auto given = request.text(key);
    const auto instant = parseInstant(given.value_or(""), edge);
    if (given && !instant) {
        throw RequestError(400, std::string(key) + " must be a date like 2024-03-07 or an ISO-8601 instant.");
    }
    return instant;
}

std::vector<std::string> requestedOwners(const Library& library, const Request& request, std::string_view fallback) {
    const auto owners = ownersInScope(library, request.text("owner").value_or(std::string(fallback)));
    if (!owners) {
        throw RequestError(400, "owner must be all_readable, current_user, me, team, or a user's id or email.");
    }
    return *owners;
}

MailFilter requestedMail(const Request& request) {
    MailFilter filter;
    for (const std::string_view key : {"sender", "recipient", "to", "cc", "bcc", "subject"}) {
        if (const auto wanted = request.text(key)) {
            filter.emplace_back(key, fold(*wanted));
        }
    }
    return filter;
}

} // namespace

const Node& knownNode(const Library& library, std::string_view id) {
    const Node* node = library.findNode(id);
    if (!node) {
        throw RequestError(404, "No node has the id " + std::string(id) + ".");
    }
    return *node;
}

const Node* requestedParent(const Library& library, const Request& request) {
    const auto id = request.text("parentId");
    return id ? &knownNode(library, *id) : nullptr;
}

NodeFilter requestedFilter(const Library& library, const Request& request, std::string_view kindKey,
                           std::string_view ownerFallback) {
    return {.kind = request.text(kindKey).value_or("all"),
            .since = requestedInstant(request, "since", DayEdge::first),
            .until = requestedInstant(request, "until", DayEdge::last),
            .ownerIds = requestedOwners(library, request, ownerFallback),
            .name = fold(request.text("name").value_or("")),
            .initiated = request.text("initiated"),
            .repos = words(request.text("repos").value_or(""), ","),
            .mail = requestedMail(request)};
}

} // namespace sample
