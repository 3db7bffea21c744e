// Skills and bundles: records of the list "skills". Besides what clients see, a skill has its "files", texts by their
// paths (a directory, which every path in it needs, is a path that ends in a slash, with null), the "agents" it is
// installed for, and its "uses".
#pragma once

#include <boost/json/object.hpp>

#include "library/Library.h"
#include "library/Records.h"

namespace sample {

const RecordKind& skillKind();

/// The item that the path names. Throws RequestError, as the next ones do.
Record& askedItem(Library& library, const Request& request);

/// One that the signed-in user may change, in the revision that the body asks for.
Record& askedOwnItem(Library& library, const Request& request);

/// The files of the skill that the path names; a bundle has none.
boost::json::object& askedFiles(Library& library, const Request& request);

/// Gives the item its next revision.
void markRevised(Record& item);

/// An item of the signed-in user; what else it needs is in `body`.
Record& createItem(Library& library, const Record& place, const boost::json::object& body);

/// The SKILL.md of a new skill.
std::string skillText(std::string_view name, std::string_view description, std::string_view content);

/// Whether the files can be installed: "valid" or "invalid".
std::string_view validationStatus(const boost::json::object& files);

/// Changes with any file.
std::string packageHash(const boost::json::object& files);

} // namespace sample
