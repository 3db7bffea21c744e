// Picking nodes out of the library.
#pragma once

#include "library.h"

#include <optional>
#include <utility>

namespace sample {

/// Pairs of a part of a message (sender, recipient, to, cc, bcc, subject) and what is wanted of it, folded.
using MailFilter = std::vector<std::pair<std::string_view, std::string>>;

struct NodeFilter {
    std::string kind = "all"; ///< A group word or a raw kind.
    std::optional<Instant> since;
    std::optional<Instant> until;
    std::vector<std::string> ownerIds;
    std::string name; ///< Folded.
    std::optional<std::string> initiated;
    MailFilter mail;
};

using NodeList = std::vector<const Node*>;

/// The ids of the users that an owner scope means, or nothing when there is no such scope or user.
std::optional<std::vector<std::string>> ownersInScope(const Library& library, std::string_view scope);

bool matches(const Library& library, const Node& node, const NodeFilter& filter);

/// The nodes directly below `parent`, or all of them at any depth. Without a parent the roots are the highest.
NodeList nodesBelow(const Library& library, const Node* parent, bool recursive);

void sortByName(NodeList& nodes);
void sortNewestFirst(NodeList& nodes);

/// The names of the nodes above this one, outermost first.
std::string place(const Library& library, const Node& node);

/// Whether a node's name or text holds each of the folded terms.
bool mentions(const Node& node, const std::vector<std::string>& terms);

/// The line of a node's text that a search shows for it.
std::string_view excerpt(const Node& node, const std::vector<std::string>& terms);

} // namespace sample
