// The record in which the service describes a node, as the shell's commands read it: one key at a time, and a key that
// is absent or of another type counts as missing.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/json/Json.h"
#include "platform/time/Dates.h"

namespace orvane {

/// The text of a key; empty when it is missing.
std::string_view textOrEmpty(const platform::JsonObject& record, std::string_view key);

/// Whether a node is a directory: as its record says, else as its kind lets expect.
bool isDirectory(const platform::JsonObject& node);

/// Whom a node belongs to, from its "sourceOwner": "me", an email or a name.
std::string_view ownerLabel(const std::optional<platform::JsonObject>& owner);

/// Whom a node is shared with, from its "sharedWith", on about 20 characters: what does not fit is only counted.
std::string sharedWithLabel(const std::vector<platform::JsonObject>& grants);

/// When a node was last updated, as listings show it; empty when its record doesn't tell.
std::string updatedLabel(const platform::JsonObject& node, platform::LocalClock& clock);

} // namespace orvane
