// The help of inputs that several commands have.
#pragma once

namespace orvane {

/// `--owner` of commands that see everything readable by default.
inline constexpr const char* readableOwnerHelp =
    "Orvane source owner scope: everything you can read (default all_readable). Narrow with current_user/me, team "
    "(teammates only), or a teammate user ID or email.";

/// `--owner` of commands that see what is the user's own by default.
inline constexpr const char* ownOwnerHelp =
    "Orvane source owner scope: current_user/me (default authenticated user), team (teammates only), all_readable, "
    "teammate user ID, or teammate email.";

inline constexpr const char* contextEmojiHelp = "A single emoji character for the context.";
inline constexpr const char* folderEmojiHelp = "A single emoji character for the folder.";
inline constexpr const char* contextFolderHelp = "The UUID of the folder to place the context in.";
inline constexpr const char* nameFilterHelp = "Case-insensitive node-name substring, applied before pagination.";
inline constexpr const char* listLimitHelp = "Maximum number of nodes to return (default: 100, max: 500).";
inline constexpr const char* searchLimitHelp = "Maximum number of results to return (default: 10, max: 500).";
inline constexpr const char* offsetHelp = "Starting index for pagination (default: 0).";
inline constexpr const char* literalHelp = "Use literal substring matching instead of hybrid search.";

} // namespace orvane
