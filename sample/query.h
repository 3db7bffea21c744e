// Picking nodes out of the library.
#pragma once

#include <optional>
#include <utility>

#include "library.h"

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
    std::vector<std::string> repos; ///< None stands for any, and for what has no repository as well.
    MailFilter mail;
};

using NodeList = std::vector<const Node*>;

/// The ids of the users that an owner scope means, or nothing when there is no such scope or user.
std::optional<std::vector<std::string>> ownersInScope(const Library& library, std::string_view scope);

/// Whether the node is of a raw kind or of a group such as "transcript".
bool isOfKind(const Node& node, std::string_view word);

bool matches(const Library& library, const Node& node, const NodeFilter& filter);

/// The nodes above this one, outermost first.
NodeList ancestors(const Library& library, const Node& node);

/// The nodes directly below `parent`, or all of them at any depth. Without a parent the roots are the highest.
NodeList nodesBelow(const Library& library, const Node* parent, bool recursive);

void sortByName(NodeList& nodes);
void sortNewestFirst(NodeList& nodes);

/// The nodes that are no containers, in the whole library or from one node down, the newest first.
NodeList documents(const Library& library, const Node* scope);

/// Whether a node's name or text holds each of the folded terms.
bool mentions(const Node& node, const std::vector<std::string>& terms);

struct Excerpt {
    std::size_t line = 0; ///< Counted from 0.
    std::string text;
};

/// The first few lines of a node's text that hold a term, or else the very first.
Excerpt excerpt(const Node& node, const std::vector<std::string>& terms);

} // namespace sample
