#include <cstdlib>

#include <gtest/gtest.h>

#include "core/output/DisplayDates.h"

using namespace orvane;

namespace {

// 2024-03-10 06:00 UTC, an hour before the clocks of New York go forward.
constexpr platform::Instant now = 1'710'050'400;

class DisplayDates : public testing::Test {
protected:
    DisplayDates() {
        setenv("TZ", "America/New_York", 1);
        tzset();
    }
    ~DisplayDates() override {
        setenv("TZ", "UTC", 1);
        tzset();
    }
};

TEST_F(DisplayDates, OfTimestampsChooseTimeOrYear) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"Mar 7, 2024, 2:05 PM EST", "Mar  7 14:05"},
        {" Mar  7,  2024, 12:00 AM  EST ", "Mar  7 00:00"},
        {"Mar 10, 2024, 12:59 AM EST", "Mar 10 00:59"},
        {"Mar 10, 2024, 1:59 AM EST", "Mar 10 01:59"}, // less than an hour ahead
        {"Mar 10, 2024, 3:00 AM EDT", "Mar 10  2024"}, // exactly an hour ahead
        {"Sep 9, 2023, 2:01 PM EDT", "Sep  9 14:01"},  // less than half a year ago
        {"Sep 9, 2023, 2:00 PM EDT", "Sep  9  2023"},  // 182.5 days ago
        {"Dec 31, 1969, 11:59 PM EST", "Dec 31  1969"},
        {"Feb 29, 2024, 2:05 PM EST", "Feb 29 14:05"},
        {"Nov 5, 2023, 12:30 AM EDT", "Nov  5 00:30"}, // the clocks go back
        {"Nov 5, 2023, 1:30 AM EST", "Nov  5 01:30"},
        {"Nov 5, 2023, 2:00 AM EST", "Nov  5 02:00"},
        {"Jan 1, 987, 2:05 PM EST", "Jan  1  0987"},
    };
    platform::LocalClock clock(now);
    for (const auto& [text, shown] : cases) {
        EXPECT_EQ(formatDisplayDate(text, clock), shown) << text;
    }
    for (const char* text :
         {"", "yesterday", "Feb 30, 2024, 2:05 PM EST", "Mar 7, 2024, 13:05 PM EST", "Mar 7, 2024, 0:05 AM EST",
          "Mar 7, 2024, 2:60 PM EST", "March 7, 2024, 2:05 PM EST", "Mar 7, 2024, 2:05 M EST", "Mar 7, 2024, 2:05 PM",
          "2024-03-07T14:05:00Z", "Mar 7 2024 2:05 PM EST"}) {
        EXPECT_EQ(formatDisplayDate(text, clock), text);
    }
}

TEST_F(DisplayDates, OfInstantsAreEmptyForOtherTexts) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"2024-03-07T19:05:59Z", "Mar  7 14:05"},
        {"2024-03-07T19:05:59.123Z", "Mar  7 14:05"},
        {"2024-03-08T01:05:00+06:00", "Mar  7 14:05"},
        {"2024-03-07T14:05:00-05:00", "Mar  7 14:05"},
        {"2024-03-07T19:05:59.1234567890123Z", "Mar  7 14:05"},
        {"2024-03-07T19:04:60Z", "Mar  7 14:05"}, // a leap second
        {"2024-03-07T19:04:61Z", ""},
        {"2024-03-08T19:04:00+23:59", "Mar  7 14:05"},
        {"2024-03-06T19:06:00-23:59", "Mar  7 14:05"},
        {"2024-03-08T19:05:00+24:00", ""},
        {"2024-03-07T19:05:00+00:60", ""},
        {"1999-12-31T23:59:59Z", "Dec 31  1999"},
        {"", ""},
        {"2024-03-07", ""},
        {"2024-03-07T19:05:59", ""},
        {"2024-03-07T14:05:00-0500", ""},
        {"2024-03-07 19:05:59Z", ""},
        {"2024-02-30T19:05:59Z", ""},
        {"2024-03-07T24:05:59Z", ""},
        {"2024-03-07T19:05:59.Z", ""},
        {"2024-03-07T19:05:59Zx", ""},
        {"Mar 7, 2024, 2:05 PM PST", ""},
    };
    platform::LocalClock clock(now);
    for (const auto& [text, shown] : cases) {
        EXPECT_EQ(formatISODisplayDate(text, clock), shown) << text;
    }
}

TEST_F(DisplayDates, FollowTheClockThroughItsChanges) {
    platform::LocalClock clock(now);
    const auto instant = [&](int hour, int minute, int day, int month) {
        return clock.instantOf({2024, month, day, hour, minute, 0});
    };
    EXPECT_EQ(instant(1, 59, 10, 3), 1'710'053'940);
    EXPECT_EQ(instant(2, 30, 10, 3), 1'710'055'800); // skipped
    EXPECT_EQ(instant(3, 0, 10, 3), 1'710'054'000);
    EXPECT_EQ(instant(1, 30, 3, 11), 1'730'611'800); // the first of two
    EXPECT_EQ(instant(2, 0, 3, 11), 1'730'617'200);
    setenv("TZ", "STD1DST0:40,J244/0,J247/1", 1); // another offset for three days of September
    tzset();
    EXPECT_EQ(platform::LocalClock(now).instantOf({2019, 9, 3, 11, 20, 0}), 1'567'512'000);
}

} // namespace
