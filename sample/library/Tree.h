// How nodes lie above and below each other.
#pragma once

#include "library/Library.h"

namespace sample {

using NodeList = std::vector<const Node*>;

/// The nodes above this one, outermost first.
NodeList ancestors(const Library& library, const Node& node);

/// The nodes directly below `parent`, or all of them at any depth. Without a parent the roots are the highest.
NodeList nodesBelow(const Library& library, const Node* parent, bool recursive);

void sortNewestFirst(NodeList& nodes);

/// The nodes that are no containers, in the whole library or from one node down, the newest first.
NodeList documents(const Library& library, const Node* scope);

} // namespace sample
