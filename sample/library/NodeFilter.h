// Which nodes a request wants.
#pragma once

#include <map>

#include "Request.h"
#include "library/Library.h"

namespace sample {

struct NodeFilter {
    std::string kind; ///< A group word or a raw kind.
    std::optional<Instant> since;
    std::optional<Instant> until;
    std::vector<std::string> ownerIds;
    std::string name; ///< Folded.
    std::optional<std::string> initiated;
    std::vector<std::string> repos;          ///< None stands for any, and for what has no repository as well.
    std::map<std::string, std::string> mail; ///< Folded, by the part of a message that must hold it.
};

/// Throws RequestError when the request names an owner or a date that cannot be.
NodeFilter requestedFilter(const Library& library, const Request& request, std::string_view kindKey = "kind",
                           std::string_view ownerFallback = "all_readable");

/// Whether the node is of a raw kind or of a group such as "transcript".
bool isOfKind(const Node& node, std::string_view word);

bool matches(const Library& library, const Node& node, const NodeFilter& filter);

} // namespace sample
