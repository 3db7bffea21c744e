#include "library/Tree.h"

#include <algorithm>
#include <functional>

namespace sample {

NodeList ancestors(const Library& library, const Node& node) {
    NodeList found;
    const Node* above = &node;
    while ((above = library.findNode(text(*above, "parentId")))) {
        found.push_back(above);
    }
    std::ranges::reverse(found);
    return found;
}

NodeList nodesBelow(const Library& library, const Node* parent, bool recursive) {
    NodeList found;
    for (const Node& node : library.nodes) {
        const NodeList above = ancestors(library, node);
        const Node* direct = above.empty() ? nullptr : above.back();
        if (direct == parent || (recursive && (!parent || std::ranges::count(above, parent) > 0))) {
            found.push_back(&node);
        }
    }
    return found;
}

void sortNewestFirst(NodeList& nodes) {
    std::ranges::stable_sort(nodes, std::greater(), [](const Node* node) { return lastChange(*node); });
}

NodeList documents(const Library& library, const Node* scope) {
    NodeList nodes = nodesBelow(library, scope, true);
    if (scope) {
        nodes.push_back(scope);
    }
    std::erase_if(nodes, [](const Node* node) { return isContainer(*node); });
    sortNewestFirst(nodes);
    return nodes;
}

} // namespace sample
