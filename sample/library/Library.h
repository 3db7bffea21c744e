// The library's content, kept as the JSON it is read from. A node has the keys of the record that clients see, its
// times in ISO-8601, and besides: "parentId", "owner" (a user's id), "text", a message's "mail", and a session's
// "repo". The records of the ontology and of skills stand under "ontology" and "skill", in lists.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <boost/json/object.hpp>

#include "library/Instant.h"

namespace sample {

using Node = boost::json::object;

struct Library {
    boost::json::object account;            ///< What else the file holds: version, teams, profile, …
    std::vector<boost::json::object> users; ///< The signed-in user stands first.
    std::vector<Node> nodes;                ///< Each has an owner among the users. In the file parents stand first.

    std::map<std::string, std::vector<boost::json::object>> records; ///< Of the ontology and of skills, by list.

    const Node* findNode(std::string_view id) const; ///< The case of letters does not matter.
    const boost::json::object* findUser(std::string_view id) const;
    bool isCurrentUser(const boost::json::object& user) const { return &user == &users.front(); }
};

/// The text under `key`, empty when there is none.
std::string_view text(const boost::json::object& object, std::string_view key);

std::optional<Instant> instantUnder(const boost::json::object& object, std::string_view key);

bool isContainer(const Node& node);

/// When the node changed at its source, or else in the library.
Instant lastChange(const Node& node);

/// Gives the node the present time as its last change.
void markChanged(Node& node);

/// Reads a file, and shifts all of its instants by one duration so that the newest is now. Throws std::runtime_error,
/// with a message for the person at the terminal, when the file cannot be used.
Library loadLibrary(const std::string& path);

} // namespace sample
