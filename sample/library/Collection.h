// The collections that paths name, such as "contexts" in /api/contexts/{id}, and the nodes in them.
#pragma once

#include "Request.h"
#include "library/Library.h"

namespace sample {

struct Collection {
    std::string_view word;
    std::string_view kind;      ///< Of the nodes in it: a raw kind or a group.
    std::string_view idKey;     ///< In the answer to a change.
    std::string_view nameKey;   ///< In the body that creates one.
    std::string_view parentKey; ///< In the body that places one in a folder.
};

/// A word without an entry of its own, such as "nodes", stands for nodes of every kind.
const Collection& askedCollection(const Request& request);

// Each of these throws RequestError when there is no such node.

const Node& knownNode(const Library& library, std::string_view id);

/// The node to look under, or null for the whole library.
const Node* requestedParent(const Library& library, const Request& request);

/// The node that the path names, of the kind of its collection.
const Node& askedNode(const Library& library, const Request& request);

// A node that the signed-in user may change.
Node& askedOwnNode(Library& library, const Request& request);
Node& ownFolder(Library& library, std::string_view id);
Node& ownContext(Library& library, std::string_view id);

} // namespace sample
