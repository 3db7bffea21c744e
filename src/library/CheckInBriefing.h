// The briefing that an agent finds in its context when its session starts.
#pragma once

#include <string>

#include "platform/json/Json.h"

namespace orvane {

/// The Markdown briefing of a check-in's answer; empty when there is nothing to tell.
std::string checkInBriefing(const platform::JsonObject& checkIn);

} // namespace orvane
