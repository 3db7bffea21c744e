// What a request for nodes says about the nodes that it wants.
#pragma once

#include "query.h"
#include "request.h"

namespace sample {

/// Throws RequestError when there is no such node.
const Node& knownNode(const Library& library, std::string_view id);

/// The node to look under, or null for the whole library.
const Node* requestedParent(const Library& library, const Request& request);

NodeFilter requestedFilter(const Library& library, const Request& request, std::string_view kindKey = "kind",
                           std::string_view ownerFallback = "all_readable");

} // namespace sample
