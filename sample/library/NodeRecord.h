// Nodes the way clients see them.
#pragma once

#include "library/Library.h"

namespace sample {

boost::json::object nodeRecord(const Library& library, const Node& node);

/// The record with the nodes above it and, for a container, how much it holds.
boost::json::object placedRecord(const Library& library, const Node& node);

} // namespace sample
