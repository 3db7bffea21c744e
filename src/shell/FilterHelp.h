// The help of inputs that `ls`, `find` and `grep` share.
#pragma once

namespace orvane {

inline constexpr const char* typeHelp =
    "Filter by type/kind: context, transcript, profile, email, messaging, notes, obsidian, document, local_folder, "
    "sharepoint, memory, meeting, or a raw NodeKind.";
inline constexpr const char* listSinceHelp =
    "Only include nodes updated at or after this date (ISO-8601 or yyyy-MM-dd).";
inline constexpr const char* listUntilHelp =
    "Only include nodes updated at or before this date (ISO-8601 or yyyy-MM-dd).";
inline constexpr const char* jsonTableHelp = "Output the raw JSON response instead of the aligned table.";

} // namespace orvane
