// Names of time zones, such as "Europe/Berlin", in the system's zone database.
#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Whether the zone database knows `text` as the name of a zone, letter by letter.
bool isTimeZoneIdentifier(std::string_view text);

/// The name of the zone that local times are in, from TZ or the system's setting. "GMT" when it has no name there, as
/// with a rule such as "CET-1CEST".
std::string currentTimeZoneIdentifier();

} // namespace platform
