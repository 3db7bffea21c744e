#include <cstdlib>

#include <gtest/gtest.h>

#include "platform/time/TimeZones.h"

using namespace platform;

namespace {

TEST(TimeZones, AreTheNamesOfTheDatabase) {
    for (const char* name : {"UTC", "America/Argentina/Buenos_Aires", "America/Port-au-Prince", "Etc/GMT+1"}) {
        EXPECT_TRUE(isTimeZoneIdentifier(name)) << name;
    }
    for (const char* name :
         {"", "Mars/Base", "Europe", "Europe/", "Europe//Berlin", "Europe/../UTC", "UTC ", "tzdata.zi", "posix/UTC",
          "right/UTC", "posixrules", "localtime", "/usr/share/zoneinfo/UTC", "../../../etc/localtime"}) {
        EXPECT_FALSE(isTimeZoneIdentifier(name)) << name;
    }
}

TEST(TimeZones, CurrentOneIsWhatTheSettingNames) {
    const std::pair<const char*, std::string> cases[]{
        {"Asia/Tokyo", "Asia/Tokyo"},
        {":Asia/Tokyo", "Asia/Tokyo"},
        {":", "UTC"},
        {"/usr/share/zoneinfo/Asia/Tokyo", "Asia/Tokyo"},
        {"/usr/share/zoneinfo/Europe/../Asia/Tokyo", "Asia/Tokyo"},
        {"CET-1CEST,M3.5.0,M10.5.0/3", "GMT"},
        {"../../../etc/passwd", "GMT"},
    };
    for (const auto& [setting, zone] : cases) {
        setenv("TZ", setting, 1);
        EXPECT_EQ(currentTimeZoneIdentifier(), zone) << setting;
    }
    unsetenv("TZ");
    EXPECT_TRUE(isTimeZoneIdentifier(currentTimeZoneIdentifier()) || currentTimeZoneIdentifier() == "GMT");
    setenv("TZ", "UTC", 1);
}

} // namespace
