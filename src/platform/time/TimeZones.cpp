#include "platform/time/TimeZones.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdio>
#include <cstdlib>

#include <unistd.h>

#include "platform/text/Text.h"

namespace platform {

namespace {

constexpr std::string_view databaseDirectory = "/usr/share/zoneinfo/";
constexpr const char* localTimeFile = "/etc/localtime";

/// Letters, digits and the signs of "Etc/GMT+1" and "America/Port-au-Prince": no dot, and so no way out of the
/// database.
bool isName(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char byte) {
        return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9') ||
               byte == '_' || byte == '-' || byte == '+';
    });
}

/// What stands in the database beside the zones: the whole of it twice more, counted in other seconds, and the system's
/// own settings.
bool isBesideZones(std::string_view text) {
    return text.starts_with("posix/") || text.starts_with("right/") || text == "posixrules" || text == "localtime";
}

bool isZoneFile(const std::string& path) {
    constexpr std::string_view signature = "TZif";
    std::array<char, signature.size()> start{};
    std::FILE* file = std::fopen(path.c_str(), "re");
    if (file == nullptr) {
        return false;
    }
    const bool isZone = std::fread(start.data(), 1, start.size(), file) == start.size() &&
                        std::string_view(start.data(), start.size()) == signature;
    std::fclose(file);
    return isZone;
}

/// The zone whose file `path` names, by its own text; empty for any other file.
std::string zoneOfFile(std::string_view path) {
    const bool isInDatabase = path.starts_with(databaseDirectory);
    const std::string name(isInDatabase ? path.substr(databaseDirectory.size()) : std::string_view());
    return isTimeZoneIdentifier(name) ? name : std::string();
}

/// The zone that the file at an absolute path is: by its name, by the name it is a link to, or by where it is in the
/// end.
std::string zoneAtPath(const std::string& path) {
    std::array<char, PATH_MAX> buffer;
    std::string zone = zoneOfFile(path);
    if (zone.empty()) {
        const ssize_t length = ::readlink(path.c_str(), buffer.data(), buffer.size());
        zone = zoneOfFile({buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))});
    }
    if (zone.empty() && ::realpath(path.c_str(), buffer.data()) != nullptr) {
        zone = zoneOfFile(buffer.data());
    }
    return zone;
}

/// The zone that a setting of TZ names; empty for a rule and for nonsense.
std::string zoneOfSetting(std::string_view setting) {
    if (setting.starts_with(':')) {
        setting.remove_prefix(1);
    }
    if (setting.empty()) {
        return "UTC";
    }
    if (setting.starts_with('/')) {
        return zoneAtPath(std::string(setting));
    }
    return isTimeZoneIdentifier(setting) ? std::string(setting) : std::string();
}

} // namespace

bool isTimeZoneIdentifier(std::string_view text) {
    if (text == "GMT" || text == "UTC") {
        return true; // Also where the system has no database, so that the current zone is always a known one.
    }
    const std::vector<std::string_view> names = split(text, '/');
    return std::all_of(names.begin(), names.end(), isName) && !isBesideZones(text) &&
           isZoneFile(std::string(databaseDirectory).append(text));
}

std::string currentTimeZoneIdentifier() {
    const char* setting = std::getenv("TZ");
    const std::string zone = setting != nullptr ? zoneOfSetting(setting) : zoneAtPath(localTimeFile);
    return zone.empty() ? "GMT" : zone;
}

} // namespace platform
